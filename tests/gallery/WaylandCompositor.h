// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace velmora::test {

/// What differs between the Wayland compositors that the gallery knows. All of them can be a window
/// on an X display.
struct WaylandCompositor {
    const char *name;
    /// The content of its configuration file, and its command line without the path of that file,
    /// which follows the last argument.
    QByteArray configuration;
    QStringList command;
    /// A command that prints all windows. Its output contains a text once the compositor has
    /// started.
    QStringList query;
    const char *startedText;
    /// Finds the corner of each window, by title, in that output.
    QHash<QString, QPoint> (*cornersIn)(const QByteArray &output);

    /// Null for an unknown name.
    static const WaylandCompositor *find(const QString &name);
    /// Whether the programs of the compositor and Qt's plugin for Wayland are installed.
    bool isInstalled() const;
};

} // namespace velmora::test
