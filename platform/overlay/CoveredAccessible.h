// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OverlayAccessibility.h"

#include <QtCore/QPointer>
#include <QtWidgets/QAccessibleWidget>

namespace velmora {

/// A widget that an overlay covers, as assistive technology finds it: without a name, a text or an
/// action, and with only those children that the overlay leaves free. A window keeps its title.
class CoveredAccessible : public QAccessibleWidget {
public:
    CoveredAccessible(QWidget *widget, OverlayAccessibility *cover);

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QList<QPair<QAccessibleInterface *, QAccessible::Relation>>
    relations(QAccessible::Relation) const override {
        return {};
    }

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

    void *interface_cast(QAccessible::InterfaceType) override { return nullptr; }
    QStringList actionNames() const override { return {}; }
    void doAction(const QString &) override {}

private:
    QList<QObject *> children() const;

    QPointer<OverlayAccessibility> m_cover;
};

} // namespace velmora
