// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/SplashLook.h"
#include "demo/panel/PanelPage.h"

namespace demo {

class ColorButton;

/// The look of the splash screens.
class LookPage : public PanelPage {
    Q_OBJECT

public:
    explicit LookPage(QWidget *window);

private:
    void addPresets();
    void addColors();
    ColorButton *addColor(Text::Key text, QColor SplashLook::*color,
                          const std::function<void()> &apply);
    void addPicture();
    void addPlace();
    void addHiding();
    void apply(const SplashLook &look);

    QWidget *m_window;
    SplashLook m_look = SplashLook::day();
    QList<std::pair<ColorButton *, QColor SplashLook::*>> m_colors;
    QSlider *m_trackWidth = nullptr;
    QSlider *m_elapsedWidth = nullptr;
    QComboBox *m_picture = nullptr;
    QComboBox *m_scaling = nullptr;
    QCheckBox *m_onlyHere = nullptr;
    QSlider *m_inset = nullptr;
};

} // namespace demo
