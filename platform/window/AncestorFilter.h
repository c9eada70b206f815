// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// Keeps an event filter installed on a widget and on those that it lies in. Main thread only.
class AncestorFilter {
public:
    /// @param filter must outlive this object, or be destroyed together with it
    explicit AncestorFilter(QObject *filter) : m_filter(filter) {}

    /// Watches a widget and its parents from now on, and no others. To be called again when one of
    /// them has another parent.
    /// @param end the first parent that is not watched; null for all of them
    void follow(QWidget *widget, const QWidget *end);
    /// Watches a widget and its parents up to its window.
    void followToWindow(QWidget *widget) { follow(widget, widget->window()->parentWidget()); }
    /// Watches nothing any more.
    void clear() { follow(nullptr, nullptr); }

private:
    QObject *m_filter;
    QList<QPointer<QWidget>> m_watched;
};

} // namespace velmora
