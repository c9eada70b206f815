// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QImage>

#include <functional>
#include <memory>
#include <vector>

namespace velmora {

/// The two images that the fade of a large view needs: one of the view, one of what is behind it.
/// The system hands out new memory page by page when it is first written to, thousands of times for
/// a window that fills a display. Another thread does that, so that the main thread isn't held up.
/// Main thread only.
class FadeImages {
public:
    FadeImages();
    ~FadeImages();
    FadeImages(const FadeImages &) = delete;
    FadeImages &operator=(const FadeImages &) = delete;

    /// Makes sure that images of a size can be taken.
    /// @param ready called later, once they can, if that is not so yet; not after the destructor
    /// @return whether they can be taken now. Small ones always can.
    bool prepare(QSize pixels, std::function<void()> ready);

    /// @return an image of premultiplied ARGB pixels, all transparent; null without memory
    QImage take(QSize pixels);
    /// The same for an image that will be written all over: its pixels may be anything.
    QImage takeUncleared(QSize pixels);
    /// Gives an image back, for the next take().
    void put(QImage image);

private:
    struct State;

    std::shared_ptr<State> m_state;
};

} // namespace velmora
