// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/tour/Scene.h"

#include <QtCore/QRect>

namespace demo {

/// The first start, with the ad server there: a banner in all its places, its clicks, its
/// successor, and how it goes when the reader pays.
class FirstStartScene : public Scene {
public:
    FirstStartScene(DemoApplication &demo, const Options &options) : Scene(demo, options) {}

protected:
    void play() override;

private:
    /// Where the banner belongs in the page as it is now.
    QRect bannerFrame(int height, int bottomInset, int centreInset) const;
    /// Waits until the banner is there, to a pixel, and on the screen.
    void awaitPlace(int height, int bottomInset = 0, int centreInset = 0);
    void placement();
    void swap();
    void narrowWindow();
    void panel();
    void awaitVideo();
    void removal();
};

} // namespace demo
