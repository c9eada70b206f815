// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OwnDisplay.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>
#include <QtGui/QScreen>

#include <csignal>
#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace velmora::test {

OwnDisplay::OwnDisplay() {
    if (!start(m_server, QStringLiteral("Xvfb"),
               {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                QStringLiteral("0"), QStringLiteral("1024x768x24"), QStringLiteral("-nolisten"),
                QStringLiteral("tcp"), QStringLiteral("-noreset")}))
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
    if (!start(m_windowManager, QStringLiteral("openbox"), {QStringLiteral("--sm-disable")}))
        return;
    // openbox sets this property late in its start. An application that starts before does not
    // learn what the window manager supports.
    const QDeadlineTimer deadline(20000);
    while (!runOnDisplay(QStringLiteral("xprop"),
                         {QStringLiteral("-root"), QStringLiteral("_NET_CLIENT_LIST")})
                .contains(QLatin1String("(WINDOW)"))) {
        if (deadline.hasExpired()) {
            m_error = QStringLiteral("openbox did not start");
            return;
        }
        QThread::msleep(20);
    }
}

OwnDisplay::~OwnDisplay() {
    for (QProcess *process : {&m_windowManager, &m_server}) {
        process->terminate();
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

void clickOnDisplay(const QWidget *widget, QPoint point) {
    const QPoint global = widget->mapToGlobal(point);
    runOnDisplay(QStringLiteral("xdotool"),
                 {QStringLiteral("mousemove"), QString::number(global.x()),
                  QString::number(global.y()), QStringLiteral("click"), QStringLiteral("1")});
}

QColor colorOnDisplay(const QWidget *widget, QPoint point) {
    const QPoint global = widget->mapToGlobal(point);
    const QPixmap pixel = widget->screen()->grabWindow(0, global.x(), global.y(), 1, 1);
    return pixel.toImage().pixelColor(0, 0);
}

} // namespace velmora::test
