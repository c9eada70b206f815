// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// Keeps the style sheets of a host from changing the size of the framework's widgets. For rules
/// like "QWidget { min-width: 300px }", Qt sets the minimum and maximum size of every widget that
/// they match. The shield removes those limits at once. It also restores Qt::WA_OpaquePaintEvent,
/// which a rule with a border resets: whatever is behind a video would be drawn with every frame.
/// Main thread only.
///
/// So the widgets can't have minimum and maximum sizes of their own. Fonts and palettes, which a
/// style sheet sets as well, stay as they are: the framework's widgets do not draw with them.
class StyleShield : public QObject {
    Q_OBJECT

public:
    /// @param root  protected with all the widgets that are in it now; owns this object
    /// @param place called when limits were removed: gives the widgets the places that they had.
    ///              Null when nothing has to be done.
    StyleShield(QWidget *root, std::function<void()> place);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void restore(QWidget *widget);

    QList<QWidget *> m_opaque;
    std::function<void()> m_place;
};

} // namespace velmora
