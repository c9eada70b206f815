// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "CloseButtonCell.h"

namespace velmora {

/// A round button with two states and an image for each: off (0), the initial one, and on (1). A
/// click switches between them. Main thread only.
class ToggleButtonCell : public CloseButtonCell {
    Q_OBJECT

public:
    explicit ToggleButtonCell(QWidget *parent = nullptr);

    void setImage(const QIcon &image);
    /// Shown in the on state.
    void setAlternateImage(const QIcon &image);

    int state() const { return isChecked() ? 1 : 0; }
    void setState(int state) { setChecked(state != 0); }

private:
    void showState();

    QIcon m_image;
    QIcon m_alternateImage;
};

} // namespace velmora
