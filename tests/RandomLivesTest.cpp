// SPDX-License-Identifier: Apache-2.0
#include "AdBannerController.h"
#include "Animator.h"
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "SplashScreenPresenter.h"
#include "Workspace.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/TestRandom.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Velmora.h>

#include <QtCore/QDir>
#include <QtGui/QRasterWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

#include <random>
#include <thread>

namespace velmora::test {

using adserver::Fault;

// Lives of a host with a real ad server: random calls, window events, answers of the server,
// removals and deletions, also inside notification handlers and on another thread, and an end at a
// random moment. VELMORA_TEST_REPETITIONS multiplies their number, VELMORA_TEST_SEED is the first.
class RandomLivesTest : public LocalAdServer {
protected:
    static constexpr int Windows = 3;
    static constexpr int Lives = 40;
    static constexpr int Steps = 40;

    RandomLivesTest() {
        Workspace::setOpener([](const QUrl &) { return true; });
    }

    ~RandomLivesTest() override { Workspace::setOpener(nullptr); }

    void observe() {
        observations.clear();
        for (const QString &name :
             {VLMtryRemoveAds, VLMclickForBanner, VLMclickForVideo, VLMadsVideoDidStart,
              VLMadsVideoDidStop, VLMsplashScreenShowMoreOne, VLMsplashScreenWillShow,
              VLMsplashScreenDidShow, VLMsplashScreenDidClose})
            observations.push_back(NotificationCenter::defaultCenter().addObserver(
                name, [this](const Notification &told) { heard(told.name); }));
        slots = std::make_unique<QObject>();
        QObject::connect(&VelmoraEvents::instance(), &VelmoraEvents::refused, slots.get(),
                         [this] { actInHandler(); });
        QObject::connect(&VelmoraEvents::instance(), &VelmoraEvents::bannerRectChanged, slots.get(),
                         [this] { actInHandler(); });
        QObject::connect(&VelmoraEvents::instance(), &VelmoraEvents::windowBannerRectChanged,
                         slots.get(), [this] { actInHandler(); });
    }

    void heard(const QString &name) {
        EXPECT_FALSE(isRemoved) << "posted after the removal: " << qPrintable(name);
        actInHandler();
    }

    void actInHandler() {
        if (isInHandler || pick(6) > 0)
            return;
        isInHandler = true;
        act(pick(16) == 0 ? 15 : pick(8));
        isInHandler = false;
    }

    QWidget *window() {
        auto &chosen = windows[size_t(pick(Windows))];
        if (!chosen) {
            chosen = std::make_unique<QWidget>();
            chosen->resize(200 + pick(800), 100 + pick(600));
            if (pick(2) == 0)
                new QVBoxLayout(chosen.get());
            chosen->show();
        }
        return chosen.get();
    }

    void remove() {
        if (pick(2) == 0)
            std::thread([] { Velmora::removeAdsNow(); }).join();
        else
            Velmora::removeAdsNow();
        isRemoved = true;
        forgetRequests();
    }

    // The first eight may also be done inside a handler.
    void act(int what) {
        switch (what) {
        case 0:
            windows[size_t(pick(Windows))].reset();
            break;
        case 1:
            if (pick(4) == 0)
                remove();
            break;
        case 2:
            Velmora::addBannerForWindow(window());
            break;
        case 3:
            Velmora::addSplashScreenToWindow(window());
            break;
        case 4:
            Velmora::removeSplashScreenFromWindow(window());
            break;
        case 5:
            pick(2) ? Velmora::forceShow() : Velmora::showWithouSplash();
            break;
        case 6:
            Velmora::setBannersHeight(pick(200));
            break;
        case 7:
            window()->setVisible(pick(3) > 0);
            break;
        case 8:
            window()->resize(pick(1200), pick(900));
            break;
        case 9:
            window()->activateWindow();
            break;
        case 10:
            Velmora::show();
            break;
        case 11:
            clickSomething();
            break;
        case 12:
            server.faults().set(QStringLiteral("*"),
                                std::array{Fault::hang(), Fault::reset(), Fault::truncated(),
                                           Fault::statusCode(503, "busy")}[size_t(pick(4))]);
            break;
        case 13:
            server.faults().clear();
            break;
        case 14:
            quietly(pick(15)); // lets the server answer
            break;
        case 15:
        case 16:
            actOnNativeWindow(pick(8));
            break;
        default:
            time->advance(pick(5) == 0 ? pick(700) : pick(60) / 10.0);
        }
    }

    // A host's window that is not a widget's.
    void actOnNativeWindow(int what) {
        if (!native) {
            native = std::make_unique<QRasterWindow>();
            native->resize(200 + pick(800), 100 + pick(600));
            native->show();
        }
        switch (what) {
        case 0:
            native.reset();
            break;
        case 1:
            native->destroy();
            break;
        case 2:
            native->setVisible(pick(2) == 0);
            break;
        case 3:
            native->close();
            break;
        case 4:
            native->requestActivate();
            break;
        case 5:
            Velmora::addBannerForWindow(native.get());
            break;
        case 6:
            Velmora::removeSplashScreenFromWindow(native.get());
            break;
        default:
            Velmora::addSplashScreenToWindow(native.get());
        }
    }

    void clickSomething() {
        QList<QAbstractButton *> buttons = window()->findChildren<QAbstractButton *>();
        buttons.removeIf([](auto *button) { return !button->isVisible(); });
        if (!buttons.isEmpty())
            buttons.at(pick(int(buttons.size())))->click();
    }

    // Also those that have left and that the server has not read.
    void forgetRequests() {
        const auto port = quint16(QUrl(baseUrl).port());
        server.stop();
        server.log().clear();
        EXPECT_EQ(server.start(port), baseUrl);
    }

    void checkRemoval() {
        if (!isRemoved)
            return;
        time->advance(1); // the fade
        EXPECT_TRUE(Velmora::BControllers().empty());
        EXPECT_FALSE(Velmora::isShowSplashScreen());
        for (const auto &each : windows) {
            const qsizetype left = each ? each->findChildren<QWidget *>().size() : 0;
            EXPECT_EQ(left, 0) << "something is left in a window";
        }
    }

    void live(unsigned seed) {
        random.seed(seed);
        SeededRandom draws(seed);
        VirtualTime clock;
        time = &clock;
        server.faults().clear();
        serve({banner("one"), banner("two")}, {video("film")});
        if (pick(3) > 0)
            QDir(cachesFolder()).removeRecursively();
        observe();
        Velmora::setSplashScreenDelay(pick(3));
        Velmora::setBannersReserveSpace(pick(2) == 0);
        for (int step = 0; step < Steps && !HasFailure(); ++step) {
            act(pick(24));
            handleEvents();
            checkRemoval();
        }
        if (isRemoved) {
            quietly(15);
            EXPECT_EQ(server.log().count(), 0) << "requests after the removal";
        }
        end();
        EXPECT_EQ(clock.timerCount(), 0u);
        EXPECT_EQ(QApplication::topLevelWidgets().size(), 0);
        time = nullptr;
        EXPECT_FALSE(HasFailure()) << "seed " << seed;
    }

    // Either the windows or the framework go first.
    void end() {
        isRemoved = false;
        Velmora::resetAds();
        const bool areWindowsFirst = pick(2) == 0;
        if (areWindowsFirst) {
            windows = {};
            native.reset();
        }
        restartProcess();
        windows = {};
        native.reset();
        handleEvents();
        server.log().clear();
    }

    int pick(int below) { return int(random() % unsigned(below)); }

    std::mt19937 random;
    VirtualTime *time = nullptr;
    std::array<std::unique_ptr<QWidget>, Windows> windows;
    std::unique_ptr<QRasterWindow> native;
    std::vector<NotificationCenter::Observation> observations;
    std::unique_ptr<QObject> slots; // the context of the connections to VelmoraEvents
    bool isInHandler = false;
    bool isRemoved = false;
};

TEST_F(RandomLivesTest, NoneCrashesOrLeavesAnythingBehind) {
    const int repetitions = std::max(1, qEnvironmentVariableIntValue("VELMORA_TEST_REPETITIONS"));
    const auto first = unsigned(qEnvironmentVariableIntValue("VELMORA_TEST_SEED"));
    for (int life = 0; life < Lives * repetitions && !HasFailure(); ++life)
        live(first + unsigned(life));
}

} // namespace velmora::test
