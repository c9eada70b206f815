// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtGui/QIcon>

namespace velmora {

/// The images of the framework's interface, as icons with pixmaps for device pixel ratios 1, 2 and
/// 3. Main thread only.
class InterfaceImage {
public:
    /// An interface image; a null icon, and a log line, when it is missing.
    /// @param name the file's name without folder, "@2x" and extension
    static QIcon named(const QString &name);
};

} // namespace velmora
