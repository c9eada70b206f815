// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/gallery/Desktop.h"
#include "tests/gallery/WaylandCompositor.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

namespace velmora::test {

/// A Wayland compositor as a window that fills a virtual X display. The hosts see the compositor
/// alone; pictures and clicks go through the X display.
class WaylandDesktop : public Desktop {
public:
    explicit WaylandDesktop(const WaylandCompositor &compositor);
    ~WaylandDesktop() override;

    QString error() const override;
    QProcessEnvironment environment() const override;
    QHash<QString, QPoint> windowCorners() const override;

private:
    bool start();
    static void matchPointer();
    QByteArray queryWindows() const;

    const WaylandCompositor &m_compositor;
    /// Has the configuration and the compositor's sockets.
    QTemporaryDir m_folder;
    QProcess m_process;
    QString m_error;
};

} // namespace velmora::test
