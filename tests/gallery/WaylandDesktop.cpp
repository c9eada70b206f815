// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/WaylandDesktop.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QFile>
#include <QtCore/QThread>

#include <csignal>
#include <grp.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace velmora::test {

namespace {

// sway refuses to run as root.
constexpr uint Nobody = 65534;

} // namespace

WaylandDesktop::WaylandDesktop(const WaylandCompositor &compositor)
    : Desktop(QString()), m_compositor(compositor) {
    if (Desktop::error().isEmpty() && !start())
        m_error = QLatin1String(compositor.name) + QStringLiteral(" did not start");
}

WaylandDesktop::~WaylandDesktop() {
    m_process.terminate();
    if (!m_process.waitForFinished(5000))
        m_process.kill();
    m_process.waitForFinished(5000);
}

QString WaylandDesktop::error() const {
    return m_error.isEmpty() ? Desktop::error() : m_error;
}

QProcessEnvironment WaylandDesktop::environment() const {
    QProcessEnvironment values = Desktop::environment();
    values.remove(QStringLiteral("DISPLAY"));
    values.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    values.insert(QStringLiteral("SWAYSOCK"), m_folder.filePath(QStringLiteral("sway")));
    // The name that sway takes; weston is given it.
    values.insert(QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("wayland-1"));
    values.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
    return values;
}

bool WaylandDesktop::start() {
    const QString path = m_folder.filePath(QStringLiteral("configuration"));
    QFile configuration(path);
    if (!configuration.open(QIODevice::WriteOnly))
        return false;
    configuration.write(m_compositor.configuration);
    configuration.close();

    QProcessEnvironment values = environment();
    values.remove(QStringLiteral("WAYLAND_DISPLAY")); // or the compositor would be a window there
    values.insert(QStringLiteral("DISPLAY"), qEnvironmentVariable("DISPLAY"));
    values.insert(QStringLiteral("HOME"), m_folder.path());
    values.insert(QStringLiteral("WLR_BACKENDS"), QStringLiteral("x11"));
    values.insert(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
    m_process.setProcessEnvironment(values);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    const bool isRoot = ::getuid() == 0;
    if (isRoot) {
        for (const QString &file : {m_folder.path(), path}) {
            if (::chown(qPrintable(file), Nobody, Nobody) != 0)
                return false;
        }
    }
    m_process.setChildProcessModifier([isRoot] {
        if (isRoot &&
            (::setgroups(0, nullptr) != 0 || ::setgid(Nobody) != 0 || ::setuid(Nobody) != 0))
            ::_exit(1);
        ::prctl(PR_SET_PDEATHSIG, SIGTERM); // ends it with this process, even if that crashes
    });
    m_process.start(m_compositor.command.first(), m_compositor.command.mid(1) << path);
    const QDeadlineTimer deadline(20000);
    while (!queryWindows().contains(m_compositor.startedText)) {
        if (deadline.hasExpired() || m_process.waitForFinished(50))
            return false;
    }
    matchPointer();
    return true;
}

// weston moves its pointer by as much as the one of the X display moves, and does not always begin
// at the same point. In a corner both are stopped.
void WaylandDesktop::matchPointer() {
    runOnDisplay(QStringLiteral("xdotool"),
                 {QStringLiteral("mousemove"), QStringLiteral("0"), QStringLiteral("0"),
                  QStringLiteral("mousemove"), QString::number(Size.width() - 1),
                  QString::number(Size.height() - 1)});
}

QByteArray WaylandDesktop::queryWindows() const {
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(m_compositor.query.first(), m_compositor.query.mid(1));
    process.waitForFinished(20000);
    return process.readAllStandardOutput();
}

QHash<QString, QPoint> WaylandDesktop::windowCorners() const {
    return m_compositor.cornersIn(queryWindows());
}

} // namespace velmora::test
