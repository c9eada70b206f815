// SPDX-License-Identifier: Apache-2.0
#include "ToggleButtonCell.h"

namespace velmora {

ToggleButtonCell::ToggleButtonCell(QWidget *parent) : CloseButtonCell(parent) {
    setCheckable(true);
    connect(this, &QAbstractButton::toggled, this, &ToggleButtonCell::showState);
}

void ToggleButtonCell::setImage(const QIcon &image) {
    m_image = image;
    showState();
}

void ToggleButtonCell::setAlternateImage(const QIcon &image) {
    m_alternateImage = image;
    showState();
}

void ToggleButtonCell::showState() {
    setIcon(isChecked() ? m_alternateImage : m_image);
}

} // namespace velmora
