// SPDX-License-Identifier: Apache-2.0
#include "demo/JournalEntry.h"

#include "demo/TextFile.h"

#include <QtCore/QJsonArray>

namespace demo {

namespace {

using Motif = Scenery::Motif;

Scenery harbour() {
    return {
        .skyTop = QColor(0x6f, 0xa9, 0xb8),
        .skyBottom = QColor(0xf7, 0xd9, 0xb0),
        .sun = QColor(0xff, 0xf0, 0xc9),
        .sunX = 0.68,
        .sunY = 0.36,
        .ridges = {{QColor(0x8f, 0xa8, 0xa8), 0.42, 0.12, 0.5},
                   {QColor(0x5d, 0x84, 0x86), 0.33, 0.1, 0.3}},
        .water = QColor(0x2f, 0x66, 0x74),
        .motif = Motif::Sailboat,
        .seed = 3,
    };
}

Scenery mountains() {
    return {
        .skyTop = QColor(0x4f, 0x6d, 0x9a),
        .skyBottom = QColor(0xf6, 0xc9, 0xa8),
        .sun = QColor(0xff, 0xe9, 0xc4),
        .sunX = 0.3,
        .sunY = 0.3,
        .ridges = {{QColor(0xa0, 0xa3, 0xbd), 0.5, 0.2, 0.95},
                   {QColor(0x6c, 0x78, 0x9b), 0.36, 0.17, 0.9},
                   {QColor(0x3b, 0x52, 0x66), 0.17, 0.09, 0.5}},
        .water = {},
        .motif = Motif::Pines,
        .seed = 7,
    };
}

Scenery desert() {
    return {
        .skyTop = QColor(0xd9, 0x7f, 0x52),
        .skyBottom = QColor(0xfb, 0xdc, 0xa6),
        .sun = QColor(0xff, 0xf3, 0xd2),
        .sunX = 0.74,
        .sunY = 0.3,
        .ridges = {{QColor(0xe3, 0xa6, 0x6d), 0.42, 0.1, 0.15},
                   {QColor(0xcf, 0x83, 0x4f), 0.3, 0.09, 0.1},
                   {QColor(0xa9, 0x5c, 0x3a), 0.16, 0.06, 0.05}},
        .water = {},
        .motif = Motif::Dunes,
        .seed = 2,
    };
}

Scenery lake() {
    return {
        .skyTop = QColor(0x7b, 0xb2, 0xbd),
        .skyBottom = QColor(0xfb, 0xe6, 0xc4),
        .sun = QColor(0xff, 0xf6, 0xdf),
        .sunX = 0.22,
        .sunY = 0.28,
        .ridges = {{QColor(0xa9, 0xbf, 0xc6), 0.5, 0.17, 0.85},
                   {QColor(0x7a, 0x96, 0x8c), 0.37, 0.1, 0.4},
                   {QColor(0xb9, 0x7b, 0x49), 0.29, 0.05, 0.3}},
        .water = QColor(0x3f, 0x7c, 0x86),
        .motif = Motif::Church,
        .seed = 5,
    };
}

Scenery lighthouse() {
    return {
        .skyTop = QColor(0x1f, 0x2d, 0x4a),
        .skyBottom = QColor(0x7d, 0x86, 0xa0),
        .sun = QColor(0xf3, 0xec, 0xd6),
        .sunX = 0.82,
        .sunY = 0.22,
        .ridges = {{QColor(0x53, 0x60, 0x7c), 0.4, 0.05, 0.6},
                   {QColor(0x2a, 0x37, 0x48), 0.32, 0.09, 0.7}},
        .water = QColor(0x22, 0x36, 0x4f),
        .motif = Motif::Lighthouse,
        .seed = 9,
    };
}

Scenery lanterns() {
    return {
        .skyTop = QColor(0x2b, 0x23, 0x46),
        .skyBottom = QColor(0xc2, 0x6b, 0x62),
        .sun = QColor(0xff, 0xdc, 0xb0),
        .sunX = 0.62,
        .sunY = 0.4,
        .ridges = {{QColor(0x6a, 0x3f, 0x5e), 0.46, 0.12, 0.35},
                   {QColor(0x45, 0x2d, 0x50), 0.36, 0.08, 0.5},
                   {QColor(0x2c, 0x20, 0x3c), 0.22, 0.05, 0.3}},
        .water = {},
        .motif = Motif::Lanterns,
        .seed = 4,
    };
}

// Reads the texts of an entry. A missing entry or text ends the program with a message.
JournalEntry read(const QJsonObject &journal, const QString &name, const Scenery &scenery) {
    const QJsonObject texts = journal.value(name).toObject();
    const auto text = [&](const char *key) {
        const QString value = texts.value(QLatin1String(key)).toString();
        if (value.isEmpty())
            qFatal("texts/journal.json has no %s for %s", key, qPrintable(name));
        return value;
    };
    JournalEntry entry{text("title"),    text("place"), text("date"), text("weather"),
                       text("distance"), text("lead"),  {},           scenery};
    const QJsonArray paragraphs = texts.value(QStringLiteral("paragraphs")).toArray();
    if (paragraphs.isEmpty())
        qFatal("texts/journal.json has no paragraphs for %s", qPrintable(name));
    for (const QJsonValue &paragraph : paragraphs)
        entry.paragraphs.append(paragraph.toString());
    return entry;
}

QList<JournalEntry> readAll() {
    const std::pair<const char *, Scenery> sceneries[] = {
        {"harbour", harbour()}, {"mountains", mountains()},   {"desert", desert()},
        {"lake", lake()},       {"lighthouse", lighthouse()}, {"lanterns", lanterns()}};
    const QJsonObject journal = TextFile::read(QStringLiteral("journal.json"));
    QList<JournalEntry> entries;
    for (const auto &[name, scenery] : sceneries)
        entries.append(read(journal, QLatin1String(name), scenery));
    return entries;
}

} // namespace

int JournalEntry::words() const {
    int count = int(lead.split(QLatin1Char(' ')).size());
    for (const QString &paragraph : paragraphs)
        count += int(paragraph.split(QLatin1Char(' ')).size());
    return count;
}

const QList<JournalEntry> &JournalEntry::all() {
    static const QList<JournalEntry> entries = readAll();
    return entries;
}

} // namespace demo
