// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Scenery.h"

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace demo {

/// One entry of the travel journal: its texts, from texts/journal.json, and its illustration.
struct JournalEntry {
    QString title;
    QString place;
    QString date;
    QString weather;
    QString distance;
    QString lead;
    QStringList paragraphs;
    Scenery scenery;

    int words() const;

    /// All entries, oldest first. The first call reads the texts.
    static const QList<JournalEntry> &all();
};

} // namespace demo
