// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OverlayAccessibility.h"

#include <QtCore/QPointer>
#include <QtGui/QAccessibleObject>

namespace velmora {

/// A host's QWindow that an overlay covers, with the overlay's view as its only child, or an object
/// in it, which has neither name nor action.
class CoveredObjectAccessible : public QAccessibleObject {
public:
    CoveredObjectAccessible(QObject *object, OverlayAccessibility *cover);

    QAccessibleInterface *parent() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QWindow *window() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

private:
    /// Null for an object in the window.
    QWindow *coveredWindow() const;

    QPointer<OverlayAccessibility> m_cover;
};

} // namespace velmora
