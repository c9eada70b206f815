// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtGui/QIcon>

namespace velmora {

/// The images of the framework's interface. There is one size of each, 96x96 pixels, and whoever
/// draws it scales it down to the pixels of the screen. Main thread only.
class InterfaceImage {
public:
    /// An interface image; a null icon, and a log line, when it is missing.
    /// @param name the file's name without folder and extension
    static QIcon named(const QString &name);
};

} // namespace velmora
