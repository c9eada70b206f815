// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAccessibleWidget>

namespace velmora {

/// A button of a banner or splash screen as assistive technology finds it. What opens an ad is a
/// link. A toggle button is a check box, the only role with which Qt's bridge to AT-SPI makes
/// screen readers speak the state.
///
/// A button that is not shown, also one that is fading out or lies in a view that is, can't be
/// pressed. (Qt's own interface of a button presses hidden buttons as well.)
class ButtonAccessible : public QAccessibleWidget {
public:
    explicit ButtonAccessible(QAbstractButton *button);

    /// Makes QAccessible use this class for the buttons of this folder.
    static void install();
    /// Sets the parent that a button has for assistive technology, when its parent widget is in
    /// another window.
    static void setParent(QWidget *button, QWidget *parent);

    QAccessibleInterface *parent() const override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    QAbstractButton *button() const;
    bool isUsable() const;
};

} // namespace velmora
