// SPDX-License-Identifier: Apache-2.0
#include "Fade.h"
#include "tests/support/ChildTest.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/VirtualTime.h"

#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Support.h>
#include <Velmora/Velmora.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>

namespace velmora::test {

namespace {

/// A host's static object that still calls the framework when exit() destroys it.
struct LateCaller {
    ~LateCaller() {
        if (!isArmed)
            return;
        Velmora::isADSRemoved();
        Velmora::removeAdsNow();
        Velmora::addBannerForWindow(static_cast<QWidget *>(nullptr));
        Velmora::setBannersHeight(50);
        Velmora::BControllFromWindow(static_cast<QWidget *>(nullptr));
        Velmora::show();
        Velmora::isShowSplashScreen();
        Velmora::setSplashScreenLoadTime(3);
        Velmora::setSplashScreenTopInset(10);
        Velmora::setDefaultVideoName(QStringLiteral("film.mp4"), QStringLiteral("id1"));
        VLMSetObjForKey(1, QStringLiteral("late"));
        VLMStringFromKey(QStringLiteral("RemoveAdsText"));
        VLMMainAppBundle().objectForInfoDictionaryKey(QStringLiteral("x"));
        LOG(QStringLiteral("late"));
        std::puts("The late caller is done.");
    }

    bool isArmed = false;
};

LateCaller s_lateCaller;

/// As a host does when exec() has failed in the child.
void endInForkedChild() {
    const pid_t child = fork();
    if (child == 0) {
        alarm(10); // ends it should it hang
        std::exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    QCoreApplication::quit();
}

void end(const QByteArray &way) {
    sayPartDone();
    std::fflush(nullptr);
    if (way == "exit")
        std::exit(0);
    else if (way == "_Exit")
        std::_Exit(0);
    else if (way == "worker")
        std::thread([] { std::exit(0); }).detach();
    else if (way == "fork")
        endInForkedChild();
    else if (way == "closeAllWindows")
        QApplication::closeAllWindows();
    else
        QCoreApplication::quit();
}

/// Ends the process once the framework's view has been drawn and its fade is over: what Qt makes
/// when it first draws something, it does not survive to be used while another thread is in exit().
void endOnceDrawn(const QWidget *window, const QString &viewName, const QByteArray &way) {
    auto *poll = new QTimer;
    QObject::connect(poll, &QTimer::timeout, [=, times = 0]() mutable {
        const auto *view = window->findChild<QWidget *>(viewName);
        const bool isShown = view && view->isVisible() && !Fade::of(view);
        times = isShown ? times + 1 : 0;
        if (times < 3) // the event loop draws it in between
            return;
        poll->stop();
        end(way);
    });
    poll->start(20);
}

} // namespace

/// Runs in a child process: brings the framework into a state and ends the process.
/// VELMORA_TEST_CHILD is "WAY STATE".
TEST(HostThatEnds, DISABLED_InSomeState) {
    const QByteArrayList told = qgetenv("VELMORA_TEST_CHILD").split(' ');
    const QByteArray way = told.value(0);
    const QByteArray state = told.value(1);
    Velmora::activateDebugMode();
    s_lateCaller.isArmed = true;

    // Never destroyed: exit() destroys no local object.
    auto *window = new QWidget;
    window->resize(900, 400);
    window->show();
    window->activateWindow();
    if (!state.contains("splash") && state != "close-button" && state != "handler") {
        Velmora::addBannerForWindow(window);
        // The name of what it advertises is looked up on a thread.
        Velmora::setDefaultVideoName(QStringLiteral("none.mp4"), QStringLiteral("id1"));
        QTimer::singleShot(state.toInt(), [=] {
            if (way == "worker")
                endOnceDrawn(window, QStringLiteral("bannerView"), way);
            else
                end(way);
        });
        QCoreApplication::exec();
        return;
    }
    if (state == "running-splash") {
        Velmora::addSplashScreenToWindow(window);
        QTimer::singleShot(50, &Velmora::forceShow);
        endOnceDrawn(window, QStringLiteral("splashScreenView"), way);
        QCoreApplication::exec();
        return;
    }
    auto *time = new VirtualTime;
    if (way == "closeAllWindows")
        Velmora::addSplashScreenToUnityWindow(window);
    else
        Velmora::addSplashScreenToWindow(window);
    QCoreApplication::processEvents();
    NotificationCenter::Observation shown;
    if (state == "handler")
        shown = NotificationCenter::defaultCenter().addObserver(
            VLMsplashScreenDidShow, [way](const Notification &) { end(way); });
    QTimer::singleShot(0, [&] {
        Velmora::forceShow();
        EXPECT_TRUE(Velmora::isShowSplashScreen());
        // Advancing handles events. Were the host's quit among them, nothing would be left that
        // wakes the event loop below.
        if (state == "handler")
            return;
        time->advance(state == "close-button" ? 12 : 2);
        end(way);
    });
    QCoreApplication::exec();
}

class ProcessEndTest : public LocalAdServer {
protected:
    ProcessEndTest() { serve({banner("one")}); }

    QMap<QString, QString> variables() {
        QMap<QString, QString> variables = variablesFor(server, folder.path());
        variables.insert(QStringLiteral("XDG_CACHE_HOME"), folder.path());
        return variables;
    }

    /// How often each end is tried: a hundred times in the long run of the tests.
    static int repetitions() {
        return std::max(1, qEnvironmentVariableIntValue("VELMORA_TEST_REPETITIONS"));
    }

    void endIn(const QStringList &states) {
        endIn({"exit", "quit", "_Exit", "closeAllWindows"}, states);
    }

    void endIn(std::initializer_list<const char *> ways, const QStringList &states) {
        for (const char *way : ways) {
            for (const QString &state : states) {
                SCOPED_TRACE(state.toStdString());
                for (int i = 0; i < repetitions() && !HasFailure(); ++i)
                    runChildTest(QStringLiteral("HostThatEnds.*"),
                                 QLatin1String(way) + QLatin1Char(' ') + state, variables());
            }
        }
    }

    QTemporaryDir folder;
};

TEST_F(ProcessEndTest, AHostMayEndAtAnyMoment) {
    endIn({QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("10"), QStringLiteral("30"),
           QStringLiteral("120")});
}

TEST_F(ProcessEndTest, AHostMayEndWhileTheServerHangs) {
    server.faults().set(QStringLiteral("*"), adserver::Fault::hang());
    endIn({QStringLiteral("60")});
    server.faults().clear();
    server.faults().set(QStringLiteral("/media/*"), adserver::Fault::hang());
    endIn({QStringLiteral("80")});
}

TEST_F(ProcessEndTest, AHostMayEndDuringASplashScreen) {
    endIn({QStringLiteral("splash"), QStringLiteral("close-button"), QStringLiteral("handler")});
}

// The main thread goes on to draw while the worker is in exit().
TEST_F(ProcessEndTest, AWorkerOfTheHostMayExit) {
    endIn({"worker"}, {QStringLiteral("1000"), QStringLiteral("running-splash")});
}

TEST_F(ProcessEndTest, APluginThatLinksTheLibraryMayBeUnloadedAtAnyMoment) {
    const auto unloadIn = [this](const QString &state, int moment) {
        QMap<QString, QString> environment = variables();
        if (state.startsWith(u"film")) // GStreamer's threads own memory until they end
            environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        for (const char *way : {"quit", "exit"}) {
            for (int i = 0; i < repetitions() && !HasFailure(); ++i)
                runChild(QStringLiteral(VELMORA_TEST_PLUGIN_HOST),
                         {QStringLiteral(VELMORA_TEST_PLUGIN), state, QString::number(moment),
                          QLatin1String(way)},
                         environment);
        }
    };
    const QString film = QStringLiteral("film:" VELMORA_TEST_CLIPS "/short.mp4");
    unloadIn(QStringLiteral("idle"), 0);
    unloadIn(QStringLiteral("splash"), 100);
    unloadIn(film, 0);
    unloadIn(QStringLiteral("banner"), 150);
    // While it asks the server, and while it downloads.
    server.faults().set(TablePath, adserver::Fault::hang());
    unloadIn(QStringLiteral("banner"), 60);
    server.faults().clear();
    QDir(folder.filePath(QStringLiteral("velmora_plugin_host"))).removeRecursively();
    server.faults().set(QStringLiteral("/media/*"), adserver::Fault::hang());
    unloadIn(QStringLiteral("banner"), 80);
}

TEST_F(ProcessEndTest, AForkedChildMayExit) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the leak check of a forked child waits for threads that it does not have";
#endif
    endIn({"fork"}, {QStringLiteral("60")});
}

} // namespace velmora::test
