// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QApplication>

#include <algorithm>
#include <array>

namespace velmora::test {

// A host runs for a day, or for thirty in the long run of the tests, and shows a splash screen
// whenever one is ready. Meanwhile its user switches to other windows, opens some and closes some.
class SoakTest : public SplashHost {
protected:
    // The numbers of widgets, of objects in windows, and of timers.
    std::array<qsizetype, 3> count() const {
        handleEvents();
        qsizetype objects = 0;
        for (const QWidget *each : QApplication::topLevelWidgets())
            objects += each->findChildren<QObject *>().size();
        return {QApplication::allWidgets().size(), objects, qsizetype(time.timerCount())};
    }

    void cycle(int number) {
        ++cycles;
        QWidget *guest = nullptr;
        Velmora::show();
        time.advance(2.5);
        switch (number % 4) {
        case 0: // the user works in another window for a while
            activate(elsewhere);
            time.advance(20);
            activate(window);
            break;
        case 1: // a window joins and is destroyed while it is covered
            guest = openRegistered("guest");
            Velmora::addBannerForWindow(guest);
            time.advance(1);
            closeWindow(guest);
            activate(window);
            break;
        case 2: // the second window joins and is removed
            Velmora::addSplashScreenToWindow(second);
            time.advance(4);
            Velmora::removeSplashScreenFromWindow(second);
            activate(window);
            break;
        default:
            time.advance(4);
            controller(window).didVideoEnded();
            break;
        }
        time.advance(12);
        if (controller(window).outlets().closeButton->isVisible())
            controller(window).outlets().closeButton->click();
        time.advance(Wait + 1);
    }

    static constexpr int Wait = 600;
    QWidget *elsewhere = openWindow("elsewhere");
    QWidget *second = openWindow("second");
    QWidget *window = openRegistered("main");
    int cycles = 0;
};

TEST_F(SoakTest, ADayLeavesNothingBehind) {
    for (QWidget *each : {elsewhere, second, window})
        each->resize(160, 120);
    useUnplayableVideo();
    Velmora::setSplashScreenWaitingVideoTimeSeconds(Wait);
    Velmora::addBannerForWindow(window);
    time.advance(31);
    for (int number = 0; number < 4; ++number)
        cycle(number);
    const auto before = count();
    EXPECT_EQ(Velmora::splashScreenStartCount(), 4);
    const int days = std::clamp(qEnvironmentVariableIntValue("VELMORA_TEST_REPETITIONS"), 1, 30);
    const auto start = time.now();
    while (time.now() - start < days * std::chrono::hours(24))
        for (int number = 0; number < 4; ++number)
            cycle(number);
    EXPECT_EQ(count(), before);
    EXPECT_EQ(Velmora::splashScreenStartCount(), cycles) << "every cycle showed one";
}

} // namespace velmora::test
