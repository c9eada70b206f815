// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/panel/PanelPage.h"

namespace demo {

class Advertising;
class JournalWindow;

/// Which windows have splash screens, whether the reader has paid, whether the ad server answers
/// and where links open.
class HostPage : public PanelPage {
    Q_OBJECT

public:
    HostPage(Advertising &advertising, JournalWindow *window);

Q_SIGNALS:
    void secondWindowWanted();
};

} // namespace demo
