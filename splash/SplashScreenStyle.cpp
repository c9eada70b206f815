// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenStyle.h"

#include <algorithm>
#include <limits>

namespace velmora {

namespace {

QString latin1(std::string_view text) {
    return QLatin1String(text.data(), qsizetype(text.size()));
}

QString shown(const QVariant &value) {
    if (!value.isValid())
        return QStringLiteral("none");
    return value.typeId() == QMetaType::QColor ? value.value<QColor>().name() : value.toString();
}

} // namespace

// Truncated toward zero; QVariant::toInt() would round.
double SplashScreenStyle::wholePart(const QVariant &value) {
    constexpr double farthest = std::numeric_limits<int>::max();
    return double(int(std::clamp(value.toDouble(), -farthest, farthest)));
}

std::span<const SplashScreenOption> SplashScreenStyle::options() {
    return Table::rows;
}

QVariantMap SplashScreenStyle::standardOptions() {
    QVariantMap options;
    for (const SplashScreenOption &row : Table::rows) {
        const QVariant value = row.standardValue();
        if (value.isValid())
            options.insert(row.keyText(), value);
    }
    return options;
}

void SplashScreenStyle::restoreAll(SplashScreenController &controller, const QVariantMap &options) {
    for (const SplashScreenOption &row : Table::rows)
        row.restore(controller, options.value(row.keyText()));
}

QString SplashScreenStyle::documentation() {
    QString page = QStringLiteral("| Operation of `Velmora` | Key | Default | Dark | What it is |\n"
                                  "| --- | --- | --- | --- | --- |\n");
    for (const SplashScreenOption &row : Table::rows)
        page += QStringLiteral("| `%1` | `%2` | %3 | %4 | %5 |\n")
                    .arg(latin1(row.operation), row.keyText(), shown(row.standardValue()),
                         row.darkValue ? shown(row.darkValue()) : QString(), latin1(row.meaning));
    return page;
}

} // namespace velmora
