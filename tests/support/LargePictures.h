// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

namespace velmora::test {

/// A picture at the limits of what is accepted (PictureFile).
struct LargePicture {
    QString name;
    QString suffix;
    QByteArray bytes;

    /// One for each format that Qt can write here and way of decoding: stills of 24 million pixels,
    /// and an animation with frames of 2 million.
    static QList<LargePicture> all();
};

} // namespace velmora::test
