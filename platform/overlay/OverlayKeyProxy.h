// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// Stands for a view in a native window of its own, which never has the keyboard, in the focus
/// of the host's window: the keys it gets go to the view's focus widget. What the view ignores
/// goes on to the superview, as from a plain child. Main thread only.
class OverlayKeyProxy : public QWidget {
    Q_OBJECT

public:
    explicit OverlayKeyProxy(QWidget *superview);

    void setView(QWidget *view) { m_view = view; }

protected:
    bool event(QEvent *event) override;

private:
    QPointer<QWidget> m_view;
};

} // namespace velmora
