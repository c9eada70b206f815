// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QImage>

#include <array>

namespace velmora {

/// Enlarges a video's pictures for a place that is so large that scaling them in a paint event
/// would block the main thread for most of a frame. One thread at a time, but not the main one.
class PictureEnlarger {
public:
    /// Scales a picture to fit into the place, with its aspect ratio kept. Returns it as it is when
    /// it is not smaller than that, and for a place where it is scaled fast enough when it is
    /// painted.
    QImage enlarged(const QImage &picture, const QSize &place);

private:
    QImage &freeImage(const QSize &size);

    /// Used in turn, because the system needs longer to give new memory to each picture than Qt to
    /// scale it: one is painted, one waits for that, and one is being made.
    std::array<QImage, 3> m_images;
};

} // namespace velmora
