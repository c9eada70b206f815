// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/Desktop.h"

#include "tests/gallery/WaylandDesktop.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace velmora::test {

namespace {

Desktop *s_current = nullptr;

} // namespace

QString Desktop::name() {
    return qEnvironmentVariable("VELMORA_GALLERY_DESKTOP", QStringLiteral("openbox"));
}

std::unique_ptr<Desktop> Desktop::start() {
    std::unique_ptr<Desktop> desktop;
    if (const WaylandCompositor *compositor = WaylandCompositor::find(name()))
        desktop = std::make_unique<WaylandDesktop>(*compositor);
    else
        desktop = std::make_unique<Desktop>(name());
    s_current = desktop.get();
    return desktop;
}

Desktop &Desktop::current() {
    return *s_current;
}

Desktop::Desktop(const QString &windowManager) : m_display(windowManager, Size) {}

QProcessEnvironment Desktop::environment() const {
    return QProcessEnvironment::systemEnvironment();
}

QImage Desktop::picture() const {
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

} // namespace velmora::test
