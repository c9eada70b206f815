// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <QtCore/QObject>
#include <QtCore/QSize>
#include <QtWidgets/QWidget>

#include <optional>

namespace velmora {

/// Prevents the user from resizing a window, as long as this object exists. Main thread only.
///
/// The limits are set on the QWindow and not on the widget. So the widget keeps the minimum and
/// maximum size that the host or a layout has set, or sets meanwhile, and the host can still call
/// resize(); the new size is then fixed. QWidget::setFixedSize() would prevent all of that. While
/// the window is maximised or full screen no limits are set: it has no edge to drag, and window
/// managers leave such a state when a window gets a fixed size.
///
/// A QWindow that is not a widget's (WindowProxy) gets back the limits that it had before, or that
/// its host has set meanwhile.
class ResizeLock : public QObject {
    Q_OBJECT

public:
    explicit ResizeLock(QWidget *window);
    ~ResizeLock() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Limits {
        QSize minimum;
        QSize maximum;
    };

    bool isNormal() const;
    void lock();
    void unlock();
    void setLimits(const Limits &limits);
    void hostLimitsChanged();
    Qt::WindowStates states() const;
    void stateSettled(const QSize &sizeBefore);

    QWidget *m_window;
    // The fixed size; unset while the user may resize the window.
    std::optional<QSize> m_size;
    // Of a QWindow that is not a widget's.
    std::optional<Limits> m_hostLimits;
    bool m_isSettingLimits = false;
    TimerPtr m_settling;
    bool m_hasAskedAgain = false;
};

} // namespace velmora
