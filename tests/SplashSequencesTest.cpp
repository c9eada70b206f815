#include "tests/support/SplashHost.h"
#include "tests/support/SplashModel.h"
#include "tests/support/Waiting.h"

#include <random>

namespace velmora::test {

// Random sequences of what a host, its user and time can do, against the model.
class SplashSequencesTest : public SplashHost, public ::testing::WithParamInterface<unsigned> {
protected:
    static constexpr int Windows = 4;
    static constexpr int Unregistered = Windows - 1; // never registered

    void SetUp() override {
        for (int number = 0; number < Windows; ++number)
            window(number);
    }

    // The window of a number, opened anew when it was destroyed.
    QWidget *window(int number) {
        if (!windows[number]) {
            windows[number] = openWindow(QString::number(number));
            windows[number]->resize(160, 120);
            model.activate(number);
        }
        return windows[number];
    }

    int numberOf(const QWidget *wanted) const {
        for (int number = 0; number < Windows; ++number) {
            if (wanted && windows[number] == wanted)
                return number;
        }
        return SplashModel::None;
    }

    QString step() {
        const int number = pick(Windows - 1);
        switch (pick(16)) {
        case 0:
            Velmora::show();
            model.show();
            return QStringLiteral("show");
        case 1:
        case 2:
            Velmora::forceShow();
            model.forceShow(false);
            return QStringLiteral("force");
        case 3:
            Velmora::showWithouSplash();
            model.forceShow(true);
            return QStringLiteral("without splash");
        case 4:
            Velmora::refreshWaitAgain();
            model.refreshWaitAgain();
            return QStringLiteral("wait again");
        case 5:
        case 6:
            window(number);
            Velmora::addSplashScreenToWindow(windows[number]);
            handleEvents();
            model.add(number);
            return QStringLiteral("add %1").arg(number);
        case 7:
            Velmora::removeSplashScreenFromWindow(windows[number]);
            model.remove(number);
            return QStringLiteral("remove %1").arg(number);
        case 8:
            if (windows[number])
                closeWindow(windows[number]);
            handleEvents();
            model.destroy(number);
            return QStringLiteral("destroy %1").arg(number);
        case 9:
        case 10:
            activate(window(number));
            model.activate(number);
            return QStringLiteral("activate %1").arg(number);
        case 11:
            activate(window(Unregistered));
            model.activate(Unregistered);
            return QStringLiteral("leave");
        case 12:
            presenter().didClickClose();
            model.close();
            return QStringLiteral("close");
        case 13:
            presenter().didVideoEnded();
            model.videoEnded();
            return QStringLiteral("video ended");
        case 14:
            if (pick(4) > 0)
                return QString();
            if (Velmora::isADSRemoved()) {
                Velmora::resetAds();
                model.setAdsOff(false);
                return QStringLiteral("ads on");
            }
            Velmora::removeAdsNow();
            model.setAdsOff(true);
            model.removeAll();
            return QStringLiteral("ads off");
        default:
            const int milliseconds = pick(5) == 0 ? 40'000 : 100 * pick(60);
            time.advance(milliseconds / 1000.0);
            model.advance(milliseconds);
            return QStringLiteral("%1 ms").arg(milliseconds);
        }
    }

    void compare() {
        const SplashScreenPresenter &real = presenter();
        EXPECT_EQ(real.isShow(), model.isShow);
        EXPECT_EQ(real.stateSplashScreen(), model.state);
        EXPECT_EQ(real.isAdsReady(), model.isReady);
        EXPECT_EQ(real.isNeedShow(), model.needShow);
        EXPECT_EQ(real.needsResumeSplashScreen(), model.needsResume);
        EXPECT_EQ(real.isFocus(), model.focus);
        EXPECT_EQ(real.splashScreenStartCount(), model.count);
        EXPECT_EQ(real.passedTime(), model.passed);
        EXPECT_NEAR(real.timeDuration(), double(model.duration) / 1000, 1e-6);
        std::vector<int> registered;
        for (const auto &controller : real.SSControllers())
            registered.push_back(numberOf(controller->window()));
        EXPECT_EQ(registered, model.windows);
        EXPECT_EQ(heard(), std::exchange(model.heard, {}));
        for (const auto &controller : real.SSControllers()) {
            const bool covered = !controller->overlay()->isHidden();
            if (!real.isShow()) {
                EXPECT_FALSE(covered);
            } else if (real.stateSplashScreen() == 2) {
                EXPECT_TRUE(isShown(controller->outlets().closeButton));
            }
        }
    }

    int pick(int below) { return int(random() % unsigned(below)); }

    std::mt19937 random{GetParam()};
    SplashModel model;
    QPointer<QWidget> windows[Windows];
};

TEST_P(SplashSequencesTest, TheHostSeesWhatTheModelSays) {
    QStringList steps;
    for (int count = 0; count < 150 && !HasFailure(); ++count) {
        steps.append(step());
        handleEvents();
        compare();
    }
    EXPECT_FALSE(HasFailure()) << qPrintable(steps.join(QStringLiteral(", ")));
}

INSTANTIATE_TEST_SUITE_P(Seeds, SplashSequencesTest, ::testing::Range(1u, 25u));

} // namespace velmora::test
