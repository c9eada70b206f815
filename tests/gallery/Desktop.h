// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/support/OwnDisplay.h"

#include <QtCore/QHash>
#include <QtCore/QPoint>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <memory>

namespace velmora::test {

/// The desktop on which the hosts are started: a virtual X display with a window manager. It ends
/// with the object.
class Desktop {
public:
    static constexpr QSize Size{1600, 1100};

    /// The window manager or Wayland compositor that VELMORA_GALLERY_DESKTOP names, or openbox.
    static QString name();
    /// Starts the desktop and points the environment of this process to its X display. To be called
    /// before the application object is made.
    static std::unique_ptr<Desktop> start();
    /// The one that was started.
    static Desktop &current();

    explicit Desktop(const QString &windowManager);
    virtual ~Desktop() = default;

    /// Why the desktop is not available; empty when it is.
    virtual QString error() const { return m_display.error(); }
    /// The environment for hosts.
    virtual QProcessEnvironment environment() const;
    /// Where windows and the frames that hosts draw around them begin on the screen, by title.
    /// Empty where the hosts know it themselves.
    virtual QHash<QString, QPoint> windowCorners() const { return {}; }

    /// What the screen shows.
    QImage picture() const;

private:
    OwnDisplay m_display;
};

} // namespace velmora::test
