// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/SeveralWindowsScene.h"

#include "demo/ControlPanel.h"
#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Theme.h"
#include "tests/tour/ScreenRobot.h"
#include "tests/tour/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

namespace demo::tour {

namespace {
constexpr int PauseMs = 2200;
constexpr QSize WithPanel(1280, 800);
} // namespace

void SeveralWindowsScene::play() {
    SplashTimes times;
    times.load = 4;
    if (!openWindow(times))
        return;
    m_window->move(0, 0);
    if (awaitStoredVideo() && videoOnly() && secondWindow() && pause())
        lastSteps();
}

bool SeveralWindowsScene::turnTo(const char *tab, const char *name) {
    click(control(tab));
    movePointerAway();
    QWidget *wanted = control(name);
    return await(QStringLiteral("%1 on the panel").arg(QLatin1String(name)),
                 [wanted] { return wanted && ScreenRobot::shows(wanted); });
}

void SeveralWindowsScene::press(const char *tab, const char *button) {
    if (turnTo(tab, button))
        click(control(button));
}

bool SeveralWindowsScene::videoOnly() {
    QWidget *panelButton = control("panelButton");
    await(QStringLiteral("the window in the corner of the screen"),
          [panelButton] { return ScreenRobot::shows(panelButton); });
    click(panelButton);
    if (!await(QStringLiteral("the panel"),
               [this] { return m_window->findChild<ControlPanel *>()->isVisible(); }) ||
        !resizeWindow(WithPanel))
        return false;
    movePointerAway();
    picture(QStringLiteral("panel-show"));
    m_timeline.add(Timeline::LoadTime, QStringLiteral("0"));
    press("showTab", "videoOnlyButton");
    if (!awaitVideo())
        return false;
    movePointerAway();
    await(QStringLiteral("a video that has begun"),
          [this] { return isSettled() && countdown() != QStringLiteral("5"); });
    picture(QStringLiteral("video-only"));
    return awaitCloseButton() && close();
}

bool SeveralWindowsScene::secondWindow() {
    m_timeline.add(Timeline::LoadTime, QString::number(m_demo.advertising()->times().load));
    press("showTab", "forceButton");
    if (!awaitNotification(VLMsplashScreenShowMoreOne) || !awaitStartScreen())
        return false;
    m_second = m_demo.openWindow();
    const bool joined = await(QStringLiteral("the start screen in a window that joins"), [this] {
        return m_second->isActiveWindow() && isShown("lablesView", m_second);
    });
    m_second->move(m_window->frameGeometry().topRight() + QPoint(1, 0));
    return joined;
}

bool SeveralWindowsScene::pause() {
    QLabel other(QStringLiteral("A window without a splash screen"));
    other.setWindowTitle(QStringLiteral("Packing list"));
    other.setFont(theme::text(15));
    other.setAlignment(Qt::AlignCenter);
    other.setFixedSize(360, 130);
    other.move(m_window->pos() + QPoint(60, 90));
    other.show();
    other.activateWindow();
    if (!await(QStringLiteral("another window in front"),
               [&other] { return other.isActiveWindow(); }))
        return false;
    m_timeline.add(Timeline::Away);
    const QString counted = countdown();
    expect(!counted.isEmpty() &&
               Waiting::whileHolds([&] { return countdown() == counted; }, PauseMs),
           QStringLiteral("a countdown that stays at %1").arg(counted));
    picture(QStringLiteral("paused"));
    picture(QStringLiteral("paused-second-window"), m_second);
    other.hide();
    m_window->raise();
    m_window->activateWindow();
    const bool back = await(QStringLiteral("the journal in front again"),
                            [this] { return m_window->isActiveWindow(); });
    m_timeline.add(Timeline::Back);
    return back && await(QStringLiteral("a countdown that continues"),
                         [&] { return countdown() != counted; });
}

void SeveralWindowsScene::lastSteps() {
    if (!awaitNotification(VLMadsVideoDidStart, 2) || !awaitCloseButton())
        return;
    picture(QStringLiteral("second-window-waits"), m_second);
    close();
    await(QStringLiteral("the second window without its splash screen"),
          [this] { return !splash(m_second); });
    m_second->close();
    turnTo("lookTab", "nightButton");
    picture(QStringLiteral("panel-look"));
    turnTo("hostTab", "registerButton");
    picture(QStringLiteral("panel-host"));
}

} // namespace demo::tour
