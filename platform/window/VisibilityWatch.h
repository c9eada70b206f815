// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// Knows whether a view's surroundings are on screen, whichever window the view is in by now:
/// views are put into pages that enter their window later, and pages move between windows. The
/// view's own hidden state does not count. Main thread only.
class VisibilityWatch : public QObject {
    Q_OBJECT

public:
    /// Owned by the view.
    explicit VisibilityWatch(QWidget *view);

    /// The view lies in a window that is shown and not minimised.
    bool isWindowVisible() const;
    /// The superview is shown in such a window: it is no page behind another.
    bool isSuperviewVisible() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// One of the two may have become true, or the view lies in another window. Emitted in the
    /// middle of the host's change.
    void changed();

private:
    void follow();

    QWidget *m_view;
    /// The view and all that contains it.
    QList<QPointer<QWidget>> m_watched;
    QMetaObject::Connection m_windowShown;
};

} // namespace velmora
