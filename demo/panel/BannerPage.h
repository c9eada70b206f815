// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/panel/PanelPage.h"

namespace demo {

class JournalWindow;

/// Size, position and visibility of the banners.
class BannerPage : public PanelPage {
    Q_OBJECT

public:
    explicit BannerPage(JournalWindow *window);

private:
    void setHeight(bool large);
    void setInsets();
    void setHidden(bool hidden);

    JournalWindow *m_window;
    QCheckBox *m_everyWindow = nullptr;
    QSlider *m_bottom = nullptr;
    QSlider *m_centre = nullptr;
};

} // namespace demo
