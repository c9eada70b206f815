// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// Finds out whether an overlay that was shown appears on the screen: it must, within two seconds
/// in which its host's window does. Otherwise it would take clicks and keys that the user means for
/// what he sees. Main thread only.
class OverlayExposure : public QObject {
    Q_OBJECT

public:
    /// @param missing called when the overlay does not appear; may destroy this object
    explicit OverlayExposure(std::function<void()> missing) : m_missing(std::move(missing)) {}
    ~OverlayExposure() override { end(); }

    /// Starts to watch a view that is being shown.
    /// @param own the native window that the view is in; null when it shares the superview's
    void begin(QWidget *view, QWidget *superview, QWindow *own);
    void end();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void startWait();
    void check();
    bool isExposed() const;

    QPointer<QWidget> m_view;
    QPointer<QWindow> m_own;
    QPointer<QWindow> m_host;
    std::function<void()> m_missing;
    TimerPtr m_timer;
};

} // namespace velmora
