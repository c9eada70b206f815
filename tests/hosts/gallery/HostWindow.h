// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <memory>

namespace gallery {

/// One of a host's windows: a widget, a QWindow, or a window of another toolkit.
class HostWindow {
public:
    virtual ~HostWindow() = default;

    virtual void setTitle(const QString &title) = 0;
    virtual void addSplashScreen(bool isGameEngine) = 0;
    virtual void addBanner() = 0;

    /// Null while there is none.
    virtual QWindow *native() const = 0;
    virtual bool isExposed() const;
    virtual bool isActive() const = 0;
    /// The window's corner on the screen.
    virtual QPoint corner() const;
    /// The same under X11. Wayland tells no client where its windows are: there it is the corner
    /// within the frame that Qt draws around the window.
    QPoint knownCorner() const;
    /// What a splash screen covers, in the window's coordinates.
    virtual QRect content() const = 0;
    /// Whether the window prints the clicks on it itself, and no widget in it does.
    virtual bool printsClicks() const { return false; }
};

/// A widget that is a window. Owns it.
class WidgetHostWindow : public HostWindow {
public:
    explicit WidgetHostWindow(QWidget *widget) : m_widget(widget) {}

    void setTitle(const QString &title) override { m_widget->setWindowTitle(title); }
    void addSplashScreen(bool isGameEngine) override;
    void addBanner() override;
    QWindow *native() const override { return m_widget->windowHandle(); }
    bool isActive() const override { return m_widget->isActiveWindow(); }
    QRect content() const override;

private:
    std::unique_ptr<QWidget> m_widget;
};

/// A QWindow that is not a widget's. Owns it.
class NativeHostWindow : public QObject, public HostWindow {
    Q_OBJECT

public:
    explicit NativeHostWindow(QWindow *window);

    void setTitle(const QString &title) override { m_window->setTitle(title); }
    void addSplashScreen(bool isGameEngine) override;
    void addBanner() override;
    QWindow *native() const override { return m_window.get(); }
    bool isActive() const override { return m_window->isActive(); }
    QRect content() const override { return {QPoint(), m_window->size()}; }
    bool printsClicks() const override { return true; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::unique_ptr<QWindow> m_window;
};

} // namespace gallery
