// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

namespace demo {

/// Looks inside the framework, for the state view and the tour. The only part of the demo that
/// needs more than the public headers.
class StateReader {
public:
    struct Fact {
        QString name; ///< of a group, when there is no value
        QString value;
        bool isGroup = false;
    };

    static QList<Fact> read();

    /// A video and its still are on disk, ready to be shown.
    static bool hasVideo();

    /// The name of what the host's own video advertises; empty until the store has told it.
    static QString defaultVideoName();
};

} // namespace demo
