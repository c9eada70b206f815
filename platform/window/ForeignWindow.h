// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QRect>
#include <QtGui/QWindow>

#include <memory>

namespace velmora {

/// The state of a window that another toolkit or process has made, and that the host has turned
/// into a QWindow (QWindow::fromWinId()). Qt does not follow such a window. Main thread only.
class ForeignWindow : public QObject {
    Q_OBJECT

public:
    /// Watches a window. Null when Qt follows the window itself, and on platforms whose native
    /// windows can't be watched from outside.
    static std::unique_ptr<ForeignWindow> watch(QWindow *window);

    /// In device-independent pixels.
    virtual QRect geometry() const = 0;
    virtual bool isVisible() const = 0;
    /// Whether the window or one of its native children has the keyboard focus.
    virtual bool isActive() const = 0;

Q_SIGNALS:
    /// One of the above may have changed.
    void changed();
    /// The native window was destroyed.
    void closed();

protected:
    ForeignWindow() = default;
};

} // namespace velmora
