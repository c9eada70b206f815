// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QSize>
#include <QtGui/QColor>

namespace velmora::test {

/// A GIF whose frames are each one flat colour, repeating for ever.
/// @param delay hundredths of a second between frames
QByteArray gif(const QList<QColor> &frames, QSize size = {182, 22}, int delay = 10);

/// A GIF of one frame, whose left half is one flat colour and its right half another; it ends
/// after that frame.
QByteArray stillGif(const QColor &left, const QColor &right, QSize size);

/// A GIF that declares a size and has no frames to show for it.
QByteArray gifHeaderOnly(QSize size);

} // namespace velmora::test
