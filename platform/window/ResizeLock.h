// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QSize>
#include <QtWidgets/QWidget>

#include <optional>

namespace velmora {

/// Keeps a window's user from resizing it for as long as this object lives. Main thread only.
///
/// The limits are put on the native window alone, past the widget: the host's own minimum and
/// maximum stay what they are (or become meanwhile) and need no saving, a layout that derives
/// its window's minimum goes on doing so, and the host can still resize(); the window is then
/// held at its new size. setFixedSize() on the widget would lose all three. While the window is
/// maximised or full screen no limits are set: it has no edge to drag, and window managers undo
/// such a state when a window becomes fixed.
class ResizeLock : public QObject {
    Q_OBJECT

public:
    explicit ResizeLock(QWidget *window);
    ~ResizeLock() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isNormal() const;
    void lock();
    void unlock();
    void setLimits(const QSize &minimum, const QSize &maximum);

    QWidget *m_window;
    // Unset while the window may take any size.
    std::optional<QSize> m_size;
};

} // namespace velmora
