// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/Scene.h"

#include <QtCore/QRect>

namespace demo::tour {

/// The first start, online: a banner in every position and size, a click on it, the next banner,
/// and its removal when the reader pays.
class FirstStartScene : public Scene {
public:
    using Scene::Scene;

protected:
    void play() override;

private:
    /// Where the banner belongs in the page as it is now.
    QRect bannerFrame(int height, int bottomInset, int centreInset) const;
    /// Waits until the banner lies in that frame, to one pixel, and the screen shows it.
    void awaitFrame(int height, int bottomInset = 0, int centreInset = 0);
    void placement();
    void swap();
    void narrowWindow();
    void panel();
    void awaitVideo();
    void removal();
};

} // namespace demo::tour
