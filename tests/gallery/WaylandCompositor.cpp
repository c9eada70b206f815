// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/WaylandCompositor.h"

#include "tests/gallery/Desktop.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QLibraryInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>

#include <algorithm>

namespace velmora::test {

namespace {

QPoint corner(const QJsonValue &rectangle) {
    return {rectangle[QLatin1String("x")].toInt(), rectangle[QLatin1String("y")].toInt()};
}

void addSwayWindows(const QJsonObject &node, QHash<QString, QPoint> &corners) {
    corners.insert(node.value(QLatin1String("name")).toString(),
                   corner(node.value(QLatin1String("rect"))) +
                       corner(node.value(QLatin1String("window_rect"))));
    for (const char *children : {"nodes", "floating_nodes"}) {
        for (const QJsonValue child : node.value(QLatin1String(children)).toArray())
            addSwayWindows(child.toObject(), corners);
    }
}

QHash<QString, QPoint> cornersInSwayTree(const QByteArray &tree) {
    QHash<QString, QPoint> corners;
    addSwayWindows(QJsonDocument::fromJson(tree).object(), corners);
    return corners;
}

QHash<QString, QPoint> cornersInWestonSceneGraph(const QByteArray &graph) {
    static const QRegularExpression window(
        QStringLiteral("top-level window '(.*)' of .*\n\\s*position: \\((-?\\d+), (-?\\d+)\\)"));
    QHash<QString, QPoint> corners;
    auto found = window.globalMatch(QString::fromUtf8(graph));
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        corners.insert(match.captured(1), {match.captured(2).toInt(), match.captured(3).toInt()});
    }
    return corners;
}

const QString Resolution =
    QStringLiteral("%1x%2").arg(Desktop::Size.width()).arg(Desktop::Size.height());

const WaylandCompositor Compositors[] = {
    // Draws the frames of windows itself, and here leaves them out.
    {"sway",
     "output * resolution " + Resolution.toLatin1() +
         "\n"
         "default_border none\n"
         "default_floating_border none\n"
         "xwayland disable\n",
     {"sway", "-c"},
     {"swaymsg", "-r", "-t", "get_tree"},
     "X11-1",
     cornersInSwayTree},
    // Leaves the frames to the hosts.
    {"weston",
     "[shell]\n"
     "panel-position=none\n"
     "locking=false\n"
     "animation=none\n"
     "startup-animation=none\n"
     "close-animation=none\n"
     "[input-method]\n"
     "path=\n",
     {"weston", "--backend=x11-backend.so", "--use-pixman",
      QStringLiteral("--width=%1").arg(Desktop::Size.width()),
      QStringLiteral("--height=%1").arg(Desktop::Size.height()), "--socket=wayland-1",
      "--idle-time=0", "--debug", "-c"},
     {"weston-debug", "scene-graph"},
     "background",
     cornersInWestonSceneGraph},
};

} // namespace

const WaylandCompositor *WaylandCompositor::find(const QString &name) {
    const auto *found =
        std::find_if(std::begin(Compositors), std::end(Compositors),
                     [&name](const auto &known) { return name == QLatin1String(known.name); });
    return found == std::end(Compositors) ? nullptr : found;
}

bool WaylandCompositor::isInstalled() const {
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) +
                       QStringLiteral("/platforms"));
    return !QStandardPaths::findExecutable(command.first()).isEmpty() &&
           !QStandardPaths::findExecutable(query.first()).isEmpty() &&
           !plugins.entryList({QStringLiteral("libqwayland*")}).isEmpty();
}

} // namespace velmora::test
