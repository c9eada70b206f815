// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QSize>
#include <QtGui/QColor>

namespace velmora::test {

/// A GIF whose frames are a single colour each, repeated without end.
/// @param delay hundredths of a second between frames
QByteArray gif(const QList<QColor> &frames, QSize size = {182, 22}, int delay = 10);

/// A GIF of a single frame, whose left half has one colour and its right half another.
QByteArray stillGif(const QColor &left, const QColor &right, QSize size);

} // namespace velmora::test
