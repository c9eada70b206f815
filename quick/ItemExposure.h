// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtQuick/QQuickItem>

namespace velmora {

/// Tells whether an item can be seen: it is visible, and its window is exposed and not minimised.
/// Whether it lies behind other items or outside the window does not count. Main thread only.
class ItemExposure : public QObject {
    Q_OBJECT

public:
    /// @param item must outlive this
    explicit ItemExposure(QQuickItem *item);

    bool isExposed() const;

Q_SIGNALS:
    /// isExposed() may have changed.
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void enterWindow(QQuickWindow *window);
    void watchNativeWindow(QQuickWindow *window);

    const QQuickItem *m_item;
    /// The window on the screen. In a QQuickWidget it is another one than the item's window.
    QPointer<QWindow> m_nativeWindow;
    QMetaObject::Connection m_windowShown;
};

} // namespace velmora
