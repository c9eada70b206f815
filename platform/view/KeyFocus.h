// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

namespace velmora {

/// Which widget gets the keys, also in a window that never becomes active because it gets its keys
/// from a widget in another window. QWidget::hasFocus() is false there. Main thread only.
class KeyFocus {
public:
    /// Whether the keys that are pressed now go to a widget.
    static bool isOn(const QWidget &widget) {
        const QWidget *window = widget.window();
        return widget.hasFocus() ||
               (window->focusWidget() == &widget && window->property(Property).toBool());
    }

    /// Whether a widget is in the window that has the keyboard focus, or in a native window inside
    /// that one or around it.
    static bool isInKeyWindow(const QWidget &widget);

    /// Tells whether keys are sent to a window although it is not active. Repaints its focus
    /// widget.
    static void setForwarded(QWidget *window, bool forwarded) {
        window->setProperty(Property, forwarded);
        if (QWidget *focused = window->focusWidget())
            focused->update();
    }

private:
    static constexpr const char *Property = "velmoraKeysAreForwarded";
};

} // namespace velmora
