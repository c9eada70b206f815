// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AncestorFilter.h"

#include <QtCore/QObject>
#include <QtWidgets/QWidget>

namespace velmora {

/// Tells whether the window and the superview of a view are visible. Follows the view into other
/// windows: a host may put a view into a page before the page gets its window, and may move the
/// page to another window. The view's own hidden state does not count. Main thread only.
class VisibilityWatch : public QObject {
    Q_OBJECT

public:
    /// Owned by the view.
    explicit VisibilityWatch(QWidget *view);

    /// True when the view is in a window that is shown and not minimised.
    bool isWindowVisible() const;
    /// True when, in addition, the superview is shown: it is not on a page behind another one.
    bool isSuperviewVisible() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// One of the two may have become true, or the view is in another window. Emitted while the
    /// host's call or event that changes it is still running.
    void changed();

private:
    void follow();

    QWidget *m_view;
    AncestorFilter m_ancestors{this};
    QMetaObject::Connection m_windowShown;
};

} // namespace velmora
