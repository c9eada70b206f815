// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QSizeF>
#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QPaintDevice>

namespace velmora {

/// The sizes of drawn texts. Sizes that were asked for before are remembered: the windows of a
/// process mostly show the same texts, and to measure one takes as long as to draw it. Main thread
/// only.
class TextSizes {
public:
    /// @param device what the text is drawn on; a font's size in points depends on its resolution
    static QSizeF onOneLine(const QFont &font, const QString &text, const QPaintDevice &device);
    /// @param flags as for QPainter::drawText()
    static QSizeF inWidth(double width, int flags, const QFont &font, const QString &text,
                          const QPaintDevice &device);
};

} // namespace velmora
