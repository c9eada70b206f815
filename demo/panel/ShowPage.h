// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/panel/PanelPage.h"

class QLineEdit;

namespace demo {

class Advertising;

/// When splash screens are shown, how long each part takes, and the video for when the server
/// has none.
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
