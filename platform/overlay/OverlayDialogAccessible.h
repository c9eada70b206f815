// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OverlayAccessibility.h"

#include <QtCore/QPointer>
#include <QtWidgets/QAccessibleWidget>

namespace velmora {

/// The view of an overlay as assistive technology finds it: a modal dialog in the superview, also
/// when the view is in a native window of its own. Its children are the shown widgets that have a
/// name, or that hold one with a name.
class OverlayDialogAccessible : public QAccessibleWidget {
public:
    explicit OverlayDialogAccessible(OverlayAccessibility *cover);

    QAccessibleInterface *parent() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessible::State state() const override;

private:
    QList<QObject *> children() const;

    QPointer<OverlayAccessibility> m_cover;
};

} // namespace velmora
