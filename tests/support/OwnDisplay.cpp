// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OwnDisplay.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>
#include <QtGui/QScreen>

#include <algorithm>
#include <csignal>
#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace velmora::test {

namespace {

struct WindowManager {
    const char *name;
    QStringList command;
    /// A property of the root window that it sets late in its start. An application that starts
    /// before does not learn what the window manager supports.
    const char *lastProperty;
};

const WindowManager WindowManagers[] = {
    {"openbox", {"openbox", "--sm-disable"}, "_NET_CLIENT_LIST"},
    // Its settings come over D-Bus.
    {"xfwm4", {"dbus-run-session", "--", "xfwm4", "--compositor=off"}, "_NET_SUPPORTING_WM_CHECK"},
    {"kwin", {"kwin_x11"}, "_NET_SUPPORTING_WM_CHECK"},
    // Without a configuration, i3 would open a dialog that asks for one.
    {"i3", {"i3", "-c", "/dev/null"}, "_NET_SUPPORTING_WM_CHECK"},
};

} // namespace

OwnDisplay::OwnDisplay(const QString &windowManager, QSize size) {
    if (!start(m_server, QStringLiteral("Xvfb"),
               {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                QStringLiteral("0"),
                QStringLiteral("%1x%2x24").arg(size.width()).arg(size.height()),
                QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-noreset")}))
        return;
    while (!m_server.canReadLine()) {
        if (!m_server.waitForReadyRead(20000)) {
            m_error = QStringLiteral("Xvfb did not report a display");
            return;
        }
    }
    qputenv("DISPLAY", ':' + m_server.readLine().trimmed());
    qputenv("QT_QPA_PLATFORM", "xcb");
    for (const char *variable : {"WAYLAND_DISPLAY", "XAUTHORITY", "QT_SCALE_FACTOR"})
        qunsetenv(variable);
    if (!windowManager.isEmpty())
        startWindowManager(windowManager);
}

void OwnDisplay::startWindowManager(const QString &name) {
    const auto *manager =
        std::find_if(std::begin(WindowManagers), std::end(WindowManagers),
                     [&name](const auto &known) { return name == QLatin1String(known.name); });
    if (manager == std::end(WindowManagers)) {
        m_error = QStringLiteral("unknown window manager: ") + name;
        return;
    }
    if (!start(m_windowManager, manager->command.first(), manager->command.mid(1)))
        return;
    const QDeadlineTimer deadline(20000);
    while (!runOnDisplay(QStringLiteral("xprop"),
                         {QStringLiteral("-root"), QLatin1String(manager->lastProperty)})
                .contains(QLatin1String("(WINDOW)"))) {
        if (deadline.hasExpired()) {
            m_error = name + QStringLiteral(" did not start");
            return;
        }
        QThread::msleep(20);
    }
}

OwnDisplay::~OwnDisplay() {
    // The window manager ends with its display, and a session bus that was started for it then ends
    // too.
    m_server.terminate();
    for (QProcess *process : {&m_server, &m_windowManager}) {
        if (!process->waitForFinished(5000))
            process->kill();
        process->waitForFinished(5000);
    }
}

bool OwnDisplay::start(QProcess &process, const QString &program, const QStringList &arguments) {
    process.setStandardErrorFile(QProcess::nullDevice());
#ifdef __linux__
    // Ends the process with this one, even if that crashes.
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
#endif
    process.start(program, arguments);
    if (!process.waitForStarted(20000))
        m_error = program + QStringLiteral(" can't be started");
    return m_error.isEmpty();
}

QString runOnDisplay(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(20000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

void clickOnDisplay(QPoint point) {
    runOnDisplay(QStringLiteral("xdotool"),
                 {QStringLiteral("mousemove"), QString::number(point.x()),
                  QString::number(point.y()), QStringLiteral("click"), QStringLiteral("1")});
}

void clickOnDisplay(const QWidget *widget, QPoint point) {
    clickOnDisplay(widget->mapToGlobal(point));
}

QColor colorOnDisplay(const QWidget *widget, QPoint point) {
    const QPoint global = widget->mapToGlobal(point);
    const QPixmap pixel = widget->screen()->grabWindow(0, global.x(), global.y(), 1, 1);
    return pixel.toImage().pixelColor(0, 0);
}

} // namespace velmora::test
