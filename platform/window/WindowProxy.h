// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <memory>

namespace velmora {

class ForeignWindow;

/// Stands for a host's QWindow that is not a widget's: a QQuickView, or a window that was made from
/// a native id. It is a top-level widget with the QWindow's size that is shown, hidden, activated
/// and closed together with it, so that whatever is written for a host's QWidget works for a
/// QWindow, too. Main thread only.
///
/// The widget is never on the screen itself (Qt::WA_DontShowOnScreen). What is to be seen in it
/// needs a native window whose parent is the host's QWindow, see nativeWindowOf().
///
/// Owned by the host's QWindow.
class WindowProxy : public QWidget {
    Q_OBJECT

public:
    /// The widget for a window: that whose native window it is or lies in, otherwise the proxy of
    /// the window's topmost parent, which the first call makes. Null for null, and with a log line
    /// for a window that can't have one. Needs a QApplication.
    static QWidget *widgetFor(QWindow *window);
    /// As widgetFor(), without making a proxy: null when there is none.
    static QWidget *existingWidgetFor(QWindow *window);

    /// The host's QWindow when a widget is a proxy, otherwise null.
    static QWindow *hostOf(const QWidget *widget);
    /// The native window that a widget shows itself in: the host's for a proxy, otherwise
    /// QWidget::windowHandle().
    static QWindow *nativeWindowOf(const QWidget *widget);
    /// QWidget::isActiveWindow(), and for a proxy whether the host's QWindow has the focus.
    static bool isActive(const QWidget *window);

    ~WindowProxy() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class Owner;
    explicit WindowProxy(QWindow *host);

    void follow();
    void showLater();
    void followVisibility();
    void followState();
    void followActivation();
    void forwardClose();

    bool isHostVisible() const;
    bool isHostActive() const;

    // Null while the host's QWindow destroys its children, this one among them.
    QPointer<QWindow> m_host;
    // Null for a window of this process.
    std::unique_ptr<ForeignWindow> m_foreign;
    bool m_isActive = false;
};

} // namespace velmora
