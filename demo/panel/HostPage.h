// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/panel/PanelPage.h"

namespace demo {

class Advertising;
class JournalWindow;

/// What a host decides once: which windows take part, whether the reader has paid, and where
/// links and the ad server are.
class HostPage : public PanelPage {
    Q_OBJECT

public:
    HostPage(Advertising &advertising, JournalWindow *window);

Q_SIGNALS:
    void secondWindowWanted();
};

} // namespace demo
