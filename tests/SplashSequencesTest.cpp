// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <random>
#include <set>
#include <thread>

namespace velmora::test {

// Random steps of a host, of its user, and of time. Invariants are checked after each step.
class SplashSequencesTest : public SplashHost, public ::testing::WithParamInterface<unsigned> {
protected:
    static constexpr int Windows = 4;
    static constexpr int Unregistered = Windows - 1; // never registered

    // From the beginning of a sequence to its close button, and half a second more.
    static constexpr double ButtonSeconds = 10.5;
    static constexpr double WindowlessSeconds = 10.5;

    void SetUp() override {
        if (GetParam() % 2)
            useUnplayableVideo();
        for (int number = 0; number < Windows; ++number)
            window(number);
    }

    // The window of a number; opened again when it was destroyed.
    QWidget *window(int number) {
        if (!windows[number]) {
            windows[number] = openWindow(QString::number(number));
            windows[number]->resize(160, 120);
        }
        return windows[number];
    }

    QString step() {
        const int number = pick(Windows - 1);
        switch (pick(15)) {
        case 0:
            Velmora::show();
            return QStringLiteral("show");
        case 1:
        case 2:
            Velmora::forceShow();
            return QStringLiteral("force");
        case 3:
            Velmora::showWithouSplash();
            return QStringLiteral("without splash");
        case 4:
            Velmora::refreshWaitAgain();
            return QStringLiteral("wait again");
        case 5:
        case 6:
            Velmora::addSplashScreenToWindow(window(number));
            registered.insert(number);
            windowless = 0;
            return QStringLiteral("add %1").arg(number);
        case 7:
            Velmora::removeSplashScreenFromWindow(windows[number]);
            registered.erase(number);
            return QStringLiteral("remove %1").arg(number);
        case 8:
            if (windows[number])
                closeWindow(windows[number]);
            registered.erase(number);
            return QStringLiteral("destroy %1").arg(number);
        case 9:
        case 10:
            activate(window(number));
            return QStringLiteral("activate %1").arg(number);
        case 11:
            activate(window(Unregistered));
            return QStringLiteral("leave");
        case 12:
            return clickClose();
        case 13:
            if (presenter().isShowVideo())
                presenter().didVideoEnded();
            return QStringLiteral("video ended");
        default:
            return letTimePass(pick(5) == 0 ? 40'000 : 100 * pick(60));
        }
    }

    // A user can close a sequence only by a close button; the click makes its window key.
    QString clickClose() {
        for (const auto &splash : presenter().SSControllers()) {
            if (presenter().isShow() && isShown(splash->outlets().closeButton)) {
                activate(splash->window());
                splash->outlets().closeButton->click();
                return QStringLiteral("close");
            }
        }
        return QStringLiteral("no close button");
    }

    QString letTimePass(int milliseconds) {
        const double seconds = milliseconds / 1000.0;
        const bool runs = presenter().isShow() && !presenter().needsResumeSplashScreen();
        const bool isWindowless = registered.empty();
        const qint64 passed = presenter().passedTime();
        time.advance(seconds);
        EXPECT_LE(double(presenter().passedTime() - passed), seconds + 1) << "more than one tick";
        running += runs ? seconds : 0;
        windowless = isWindowless ? windowless + seconds : 0;
        return QStringLiteral("%1 ms").arg(milliseconds);
    }

    void listen() {
        for (const QString &name : heard()) {
            if (name == DidShow) {
                EXPECT_FALSE(isOpen) << "a sequence inside another";
                isOpen = true;
                running = 0;
                windowless = 0;
            } else if (name == DidClose) {
                EXPECT_TRUE(isOpen) << "an end without a beginning";
                isOpen = false;
            } else if (name == MoreOne) {
                EXPECT_GE(Velmora::splashScreenStartCount(), 2);
            }
        }
    }

    void checkWindow(const SplashScreenController &splash) {
        const bool isCovered = !splash.overlay()->isHidden();
        if (!presenter().isShow()) {
            EXPECT_FALSE(isCovered) << "nothing is shown and a window is covered";
            return;
        }
        EXPECT_TRUE(isCovered) << "a sequence is shown and a window is not covered";
        const bool canBeClosed = isShown(splash.outlets().closeButton);
        EXPECT_TRUE(canBeClosed || running <= ButtonSeconds)
            << "no close button after " << running << " s";
        const TimerPtr &next = presenter().videoTimer();
        EXPECT_TRUE(canBeClosed || (next && next->isValid()) ||
                    presenter().needsResumeSplashScreen())
            << "a window that nothing will ever let go";
        EXPECT_GE(splash.outlets().lablesView->timeLabel()->text().toInt(), 0);
    }

    void check() {
        listen();
        EXPECT_EQ(presenter().isShow(), isOpen);
        EXPECT_TRUE(!presenter().isShow() || windowless <= WindowlessSeconds)
            << "a sequence that nobody can see";
        std::set<const QWidget *> wanted;
        for (const int number : registered)
            wanted.insert(windows[number]);
        std::set<const QWidget *> known;
        for (const auto &splash : presenter().SSControllers()) {
            known.insert(splash->window());
            checkWindow(*splash);
        }
        EXPECT_EQ(known, wanted);
        EXPECT_EQ(known.size(), presenter().SSControllers().size()) << "a window twice";
    }

    void run(int count) {
        QStringList steps;
        for (; count > 0 && !HasFailure(); --count) {
            steps.append(step());
            handleEvents();
            check();
        }
        EXPECT_FALSE(HasFailure()) << qPrintable(steps.join(QStringLiteral(", ")));
    }

    int pick(int below) { return int(random() % unsigned(below)); }

    std::mt19937 random{GetParam()};
    QPointer<QWidget> windows[Windows];
    std::set<int> registered;
    // The host was told that a sequence is shown, and not yet that it was closed.
    bool isOpen = false;
    // Seconds for which the sequence has run, and for which no window was registered.
    double running = 0;
    double windowless = 0;
};

TEST_P(SplashSequencesTest, InvariantsHoldAfterEveryStep) {
    run(150);
    // After ads were removed nothing is left, and nothing is shown any more.
    std::thread([] { Velmora::removeAdsNow(); }).join();
    handleEvents();
    registered.clear();
    EXPECT_TRUE(presenter().SSControllers().empty());
    for (int more = 0; more < 20; ++more) {
        const QString done = step();
        handleEvents();
        EXPECT_FALSE(presenter().isShow()) << qPrintable(done);
        EXPECT_TRUE(presenter().SSControllers().empty());
    }
    const QStringList last = heard();
    EXPECT_FALSE(last.contains(WillShow));
    EXPECT_FALSE(last.contains(DidShow));
    time.advance(200);
    EXPECT_EQ(time.timerCount(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Seeds, SplashSequencesTest, ::testing::Range(1u, 25u));

} // namespace velmora::test
