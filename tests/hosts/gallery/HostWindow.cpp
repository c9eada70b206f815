// SPDX-License-Identifier: Apache-2.0
#include "HostWindow.h"

#include "Gallery.h"

#include <Velmora/Velmora.h>

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QMainWindow>

namespace gallery {

namespace {

template<class Window>
void addSplashScreenTo(Window *window, bool isGameEngine) {
    if (isGameEngine)
        Velmora::addSplashScreenToUnityWindow(window);
    else
        Velmora::addSplashScreenToWindow(window);
}

} // namespace

bool HostWindow::isExposed() const {
    return native() && native()->isExposed();
}

QPoint HostWindow::corner() const {
    return native()->mapToGlobal(QPoint());
}

QPoint HostWindow::knownCorner() const {
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return corner();
    const QMargins frame = native()->frameMargins();
    return {frame.left(), frame.top()};
}

void WidgetHostWindow::addSplashScreen(bool isGameEngine) {
    addSplashScreenTo(m_widget.get(), isGameEngine);
}

void WidgetHostWindow::addBanner() {
    Velmora::addBannerForWindow(m_widget.get());
}

QRect WidgetHostWindow::content() const {
    QRect area = m_widget->rect();
    const auto *main = qobject_cast<const QMainWindow *>(m_widget.get());
    if (main && main->menuWidget() && main->menuWidget()->isVisible())
        area.setTop(main->menuWidget()->geometry().bottom() + 1);
    return area;
}

NativeHostWindow::NativeHostWindow(QWindow *window) : m_window(window) {
    window->installEventFilter(this);
}

bool NativeHostWindow::eventFilter(QObject *, QEvent *event) {
    if (event->type() == QEvent::MouseButtonPress)
        print(QStringLiteral("click target"));
    return false;
}

void NativeHostWindow::addSplashScreen(bool isGameEngine) {
    addSplashScreenTo(m_window.get(), isGameEngine);
}

void NativeHostWindow::addBanner() {
    Velmora::addBannerForWindow(m_window.get());
}

} // namespace gallery
