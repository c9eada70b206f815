// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SplashHost.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include <algorithm>

namespace velmora::test {

class SplashLetterboxTest : public RegisteredHost {
protected:
    /// The colour of the window beside the picture.
    int brightness() {
        const QImage image = window->grab().toImage();
        return image.pixelColor(image.width() / 2, 30).lightness();
    }
    const SplashScreenOutlets &outlets() { return controller(window).outlets(); }
};

TEST_F(SplashLetterboxTest, TheBarsStayBlackFromTheVideoToItsStill) {
    window->resize(400, 600);
    putInCaches("still.gif", stillGif(Qt::red, Qt::red, {160, 90}));
    SplashScreenController &splash = controller(window);
    splash.setInterstitialUrl(QUrl::fromLocalFile(cachesFolder() + QStringLiteral("/still.gif")));
    splash.showStartScreen();
    time.advance(1);
    EXPECT_EQ(brightness(), 255) << "the background's colour";
    splash.showVideo();
    splash.removeVideoLayer(); // there is no video, so it would fail
    int before = brightness();
    for (int frame = 0; frame < 20; ++frame) {
        time.advance(0.02);
        EXPECT_LE(brightness(), before);
        before = brightness();
    }
    EXPECT_EQ(brightness(), 0);

    splash.didVideoEnded();
    splash.showEndScreen();
    int brightest = 0;
    for (int frame = 0; frame < 20; ++frame) {
        brightest = std::max(brightest, brightness());
        time.advance(0.02);
        // It is shown a second time when the close button is due.
        if (frame == 5)
            splash.showEndScreen();
    }
    EXPECT_EQ(brightest, 0);
    EXPECT_EQ(brightness(), 0) << "the still's bars";
    splash.hide();
    time.advance(1);
    splash.showStartScreen();
    time.advance(1);
    EXPECT_EQ(brightness(), 255);
}

} // namespace velmora::test
