// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QIcon>

namespace demo {

/// The journal's icon, drawn: a sail before the evening sun.
class AppIcon {
public:
    /// In all the sizes that desktops ask for.
    static QIcon icon();

    /// In one size. @param side in pixels
    static QImage picture(int side);
};

} // namespace demo
