// SPDX-License-Identifier: Apache-2.0
#include "KeyFocus.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>

namespace velmora {

namespace {

const QWindow *outermost(const QWindow *window) {
    while (window && window->parent())
        window = window->parent();
    return window;
}

} // namespace

bool KeyFocus::isInKeyWindow(const QWidget &widget) {
    const QWindow *focused = outermost(QGuiApplication::focusWindow());
    return focused && focused == outermost(widget.window()->windowHandle());
}

} // namespace velmora
