// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace velmora {

/// Tells whether an item can be seen: it is visible, and its window is exposed and not minimised.
/// Whether it lies behind other items or outside the window does not count. The window of a
/// QQuickWidget is never exposed. Main thread only.
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

    const QQuickItem *m_item;
    QPointer<QQuickWindow> m_window;
};

} // namespace velmora
