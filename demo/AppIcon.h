// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QIcon>

namespace demo {

/// Draws the journal's icon, a sail before the evening sun.
class AppIcon {
public:
    /// The icon in all sizes that desktops use.
    static QIcon icon();

    /// The icon in one size. @param side width and height in pixels
    static QImage picture(int side);
};

} // namespace demo
