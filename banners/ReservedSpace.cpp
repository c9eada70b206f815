// SPDX-License-Identifier: Apache-2.0
#include "ReservedSpace.h"

#include "Refusal.h"
#include "WindowProxy.h"

#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QFrame>
#include <QtWidgets/QLayout>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QTabWidget>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

// A scroll area sets its contents margins itself at every layout, and keeps its viewport within the
// viewport margins. Only derived classes may name those functions.
struct ViewportMargins : QAbstractScrollArea {
    static constexpr auto get = &ViewportMargins::viewportMargins;
    static constexpr void (QAbstractScrollArea::*set)(const QMargins &) =
        &ViewportMargins::setViewportMargins;
};

// The banner lies above it, and the viewport ends above both.
int scrollBarHeight(const QWidget *holder) {
    const auto *area = qobject_cast<const QAbstractScrollArea *>(holder);
    const QScrollBar *bar = area ? area->horizontalScrollBar() : nullptr;
    return bar && bar->isVisible() ? bar->height() : 0;
}

QMargins marginsOf(const QWidget *holder) {
    if (const auto *area = qobject_cast<const QAbstractScrollArea *>(holder))
        return (area->*ViewportMargins::get)();
    return holder->contentsMargins();
}

void setMargins(QWidget *holder, const QMargins &margins) {
    if (auto *area = qobject_cast<QAbstractScrollArea *>(holder))
        (area->*ViewportMargins::set)(margins);
    else
        holder->setContentsMargins(margins);
}

// The widget whose margins the content of a view follows; null when there is none.
QWidget *holderOf(QWidget *superview) {
    if (superview->layout() || qobject_cast<QFrame *>(superview))
        return superview;
    // A tab widget ignores its margins. Tabs at the bottom would stay under the banner.
    const auto *tabs = qobject_cast<QTabWidget *>(superview);
    if (tabs && tabs->tabPosition() != QTabWidget::South)
        return tabs->findChild<QStackedWidget *>(QString(), Qt::FindDirectChildrenOnly);
    return nullptr;
}

} // namespace

void ReservedSpace::setHeight(int height) {
    if (!m_superview)
        return;
    if (!m_holder && height > 0) {
        m_holder = holderOf(m_superview);
        m_added = 0;
    }
    if (m_holder)
        setBottomMargin(
            std::clamp(height - scrollBarHeight(m_holder), 0, m_superview->height() * 2 / 3));
    // A view that places headers, such as a table, sets its margins back at once.
    const bool isReserved = m_holder && marginsOf(m_holder).bottom() >= m_added;
    if (height > 0 && !isReserved)
        refuse();
}

void ReservedSpace::setBottomMargin(int added) {
    QMargins margins = marginsOf(m_holder);
    // A margin below what was added is one that the host has set since then.
    const int own = margins.bottom() >= m_added ? margins.bottom() - m_added : margins.bottom();
    m_added = added;
    if (margins.bottom() == own + added)
        return;
    margins.setBottom(own + added);
    setMargins(m_holder, margins);
}

void ReservedSpace::refuse() {
    if (std::exchange(m_isRefused, true))
        return;
    const QObject *content = WindowProxy::hostOf(m_superview);
    if (!content)
        content = m_superview;
    Refusal::report(Refusal::Request::ReserveSpace, Refusal::Reason::NoLayout,
                    QStringLiteral("no space is reserved for a banner: the content of a %1 does "
                                   "not follow its margins")
                        .arg(QLatin1String(content->metaObject()->className())));
}

} // namespace velmora
