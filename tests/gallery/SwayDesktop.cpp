// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/SwayDesktop.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QThread>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace velmora::test {

namespace {

constexpr int StartMs = 15000;
constexpr const char *Display = "wayland-1"; // the first that sway tries
constexpr const char *Configuration = "output * resolution 1280x900\n"
                                      "default_border none\n"
                                      "default_floating_border none\n"
                                      "xwayland disable\n";

// sway refuses to run as root.
constexpr uint Nobody = 65534;

bool waitForFile(const QString &path) {
    const QDeadlineTimer deadline(StartMs);
    while (!QFile::exists(path) && !deadline.hasExpired())
        QThread::msleep(20);
    return QFile::exists(path);
}

// Looks through a tree of windows.
QJsonObject findByName(const QJsonObject &node, const QString &name) {
    if (node.value(QLatin1String("name")).toString() == name)
        return node;
    for (const char *children : {"nodes", "floating_nodes"}) {
        for (const QJsonValue child : node.value(QLatin1String(children)).toArray()) {
            const QJsonObject found = findByName(child.toObject(), name);
            if (!found.isEmpty())
                return found;
        }
    }
    return {};
}

QPoint corner(const QJsonValue &rectangle) {
    return {rectangle[QLatin1String("x")].toInt(), rectangle[QLatin1String("y")].toInt()};
}

} // namespace

SwayDesktop::SwayDesktop() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!startCompositor())
        m_error = QStringLiteral("sway did not start");
    else if (!startPointer())
        m_error = QStringLiteral("sway has no virtual pointer");
}

SwayDesktop::~SwayDesktop() {
    m_pointer.closeWriteChannel();
    m_compositor.terminate();
    for (QProcess *process : {&m_pointer, &m_compositor}) {
        if (!process->waitForFinished(5000))
            process->kill();
        process->waitForFinished(5000);
    }
}

QProcessEnvironment SwayDesktop::environment() const {
    QProcessEnvironment values = QProcessEnvironment::systemEnvironment();
    values.remove(QStringLiteral("DISPLAY"));
    values.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    values.insert(QStringLiteral("WAYLAND_DISPLAY"), QLatin1String(Display));
    values.insert(QStringLiteral("SWAYSOCK"), m_folder.filePath(QStringLiteral("ipc")));
    values.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
    return values;
}

bool SwayDesktop::startCompositor() {
    const QString path = m_folder.filePath(QStringLiteral("config"));
    QFile configuration(path);
    if (!configuration.open(QIODevice::WriteOnly))
        return false;
    configuration.write(Configuration);
    configuration.close();
    QProcessEnvironment values = environment();
    values.remove(QStringLiteral("WAYLAND_DISPLAY"));
    values.insert(QStringLiteral("HOME"), m_folder.path());
    values.insert(QStringLiteral("WLR_BACKENDS"), QStringLiteral("headless"));
    values.insert(QStringLiteral("WLR_LIBINPUT_NO_DEVICES"), QStringLiteral("1"));
    values.insert(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
    m_compositor.setProcessEnvironment(values);
    m_compositor.setStandardErrorFile(QProcess::nullDevice());
    const bool isRoot = ::getuid() == 0;
    if (isRoot) {
        for (const QString &file : {m_folder.path(), path}) {
            if (::chown(qPrintable(file), Nobody, Nobody) != 0)
                return false;
        }
    }
    m_compositor.setChildProcessModifier([isRoot] {
        if (isRoot && (::setgid(Nobody) != 0 || ::setuid(Nobody) != 0))
            ::_exit(1);
        ::prctl(PR_SET_PDEATHSIG, SIGTERM); // ends it with this process, even if that crashes
    });
    m_compositor.start(QStringLiteral("sway"), {QStringLiteral("-c"), path});
    return waitForFile(m_folder.filePath(QLatin1String(Display))) &&
           waitForFile(m_folder.filePath(QStringLiteral("ipc")));
}

bool SwayDesktop::startPointer() {
    m_pointer.setProcessEnvironment(environment());
    m_pointer.start(QStringLiteral(VELMORA_TEST_POINTER), QStringList());
    return m_pointer.waitForReadyRead(StartMs) && m_pointer.readLine().startsWith("ready");
}

QByteArray SwayDesktop::run(const QString &program, const QStringList &arguments) const {
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(program, arguments);
    process.waitForFinished(20000);
    return process.readAllStandardOutput();
}

QImage SwayDesktop::picture() {
    return QImage::fromData(
        run(QStringLiteral("grim"),
            {QStringLiteral("-t"), QStringLiteral("ppm"), QStringLiteral("-")}));
}

void SwayDesktop::click(QPoint point) {
    const QSize screen = picture().size();
    m_pointer.write(qPrintable(QStringLiteral("%1 %2 %3 %4\n")
                                   .arg(point.x())
                                   .arg(point.y())
                                   .arg(screen.width())
                                   .arg(screen.height())));
    m_pointer.waitForReadyRead(5000);
    m_pointer.readAll();
}

std::optional<QPoint> SwayDesktop::positionOf(const QString &title) {
    const QByteArray tree =
        run(QStringLiteral("swaymsg"),
            {QStringLiteral("-r"), QStringLiteral("-t"), QStringLiteral("get_tree")});
    const QJsonObject window = findByName(QJsonDocument::fromJson(tree).object(), title);
    if (window.isEmpty())
        return {};
    return corner(window.value(QLatin1String("rect"))) +
           corner(window.value(QLatin1String("window_rect")));
}

} // namespace velmora::test
