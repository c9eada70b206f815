// SPDX-License-Identifier: Apache-2.0
#include "PaletteWatch.h"

#include <QtCore/QEvent>

#include <utility>

namespace velmora {

PaletteWatch::PaletteWatch(QWidget *window, std::function<void()> changed)
    : m_changed(std::move(changed)) {
    window->installEventFilter(this);
}

bool PaletteWatch::eventFilter(QObject *, QEvent *event) {
    if (event->type() == QEvent::PaletteChange)
        m_changed();
    return false;
}

} // namespace velmora
