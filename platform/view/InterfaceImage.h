// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtGui/QIcon>

namespace velmora {

/// The images of the framework's interface, sharp at every screen density.
class InterfaceImage {
public:
    /// An interface image by its bare name; a null icon, and a log line, when it is missing.
    static QIcon named(const QString &name);
};

} // namespace velmora
