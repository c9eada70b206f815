// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/panel/PanelPage.h"

class QLineEdit;

namespace demo {

class Advertising;

/// Starts splash screens, and sets their times and the default video.
class ShowPage : public PanelPage {
    Q_OBJECT

public:
    explicit ShowPage(Advertising &advertising);

private:
    void addRequests();
    void addTimes();
    void addDefaultVideo();
    void setDefaultVideo();

    Advertising &m_advertising;
    QStringList m_clips;
    QComboBox *m_clip = nullptr;
    QLineEdit *m_link = nullptr;
};

} // namespace demo
