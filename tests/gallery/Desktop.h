// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <memory>
#include <optional>

namespace velmora::test {

/// A desktop of its own, on which the hosts are started. It ends with the object.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Starts a desktop and points the environment of this process to it. To be called before the
    /// application object is made.
    /// @param name a window manager of OwnDisplay, or "sway"
    static std::unique_ptr<Desktop> start(const QString &name);
    /// The one that was started.
    static Desktop &current();

    /// Why the desktop is not available; empty when it is.
    virtual QString error() const = 0;
    /// The environment for hosts.
    virtual QProcessEnvironment environment() const = 0;
    /// How long start screens are shown: long enough for several pictures.
    virtual int startScreenSeconds() const { return 2; }
    /// What the screen shows.
    virtual QImage picture() = 0;
    /// Clicks on a point of the screen.
    virtual void click(QPoint point) = 0;
    /// Where the window with a title is on the screen; nothing where the host itself knows it.
    virtual std::optional<QPoint> positionOf(const QString &title) = 0;
};

} // namespace velmora::test
