// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Scenery.h"

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace demo {

/// One day in the travel journal.
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

    /// The journal that the demo opens.
    static const QList<JournalEntry> &all();
};

} // namespace demo
