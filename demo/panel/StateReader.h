// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Text.h"

#include <QtCore/QList>
#include <QtCore/QString>

namespace demo {

/// Reads the framework's internal state for the page State. The only part of the demo that uses
/// more than the public headers.
class StateReader {
public:
    /// A value with its name, or the heading of a group of them.
    struct Fact {
        Text::Key name;
        QString value; ///< empty for a heading
        bool isGroup = false;
    };

    static QList<Fact> read();
};

} // namespace demo
