// SPDX-License-Identifier: Apache-2.0
#include "AncestorFilter.h"

#include <utility>

namespace velmora {

void AncestorFilter::follow(QWidget *widget, const QWidget *end) {
    QList<QPointer<QWidget>> wanted;
    for (; widget && widget != end; widget = widget->parentWidget())
        wanted.append(widget);
    // Filters that stay are not installed again: that would change the list of event filters, which
    // Qt may be iterating over.
    for (QWidget *old : std::as_const(m_watched)) {
        if (old && !wanted.contains(old))
            old->removeEventFilter(m_filter);
    }
    for (QWidget *each : std::as_const(wanted)) {
        if (!m_watched.contains(each))
            each->installEventFilter(m_filter);
    }
    m_watched = wanted;
}

} // namespace velmora
