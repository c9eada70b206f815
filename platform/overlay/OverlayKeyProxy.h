// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// An invisible widget in the host's window that has the focus for a view in an OverlayWindow,
/// which never gets key events itself. It sends its key events to the view's focus widget. A key
/// that the view ignores goes to the superview, as from a plain child. Main thread only.
class OverlayKeyProxy : public QWidget {
    Q_OBJECT

public:
    explicit OverlayKeyProxy(QWidget *superview);

    /// @param view in a window of its own
    void setView(QWidget *view);

protected:
    bool event(QEvent *event) override;

private:
    bool forward(QEvent *event);
    void showFocus(bool hasKeys);

    QPointer<QWidget> m_view;
};

} // namespace velmora
