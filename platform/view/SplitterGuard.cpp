// SPDX-License-Identifier: Apache-2.0
#include "SplitterGuard.h"

#include <QtCore/QChildEvent>

namespace velmora {

namespace {

constexpr const char *Marked = "velmoraNoPane";

} // namespace

SplitterGuard::SplitterGuard(QSplitter *splitter) : QObject(splitter) {
    splitter->installEventFilter(this);
}

void SplitterGuard::keepOut(QWidget *view, QWidget *superview) {
    auto *splitter = qobject_cast<QSplitter *>(superview);
    if (!splitter)
        return;
    view->setProperty(Marked, true);
    if (!splitter->findChild<SplitterGuard *>(QString(), Qt::FindDirectChildrenOnly))
        new SplitterGuard(splitter);
}

bool SplitterGuard::eventFilter(QObject *, QEvent *event) {
    // QSplitter makes panes of its children in these events. Nothing else in it needs them.
    const bool isAboutChild =
        event->type() == QEvent::ChildAdded || event->type() == QEvent::ChildPolished;
    return isAboutChild && static_cast<QChildEvent *>(event)->child()->property(Marked).toBool();
}

} // namespace velmora
