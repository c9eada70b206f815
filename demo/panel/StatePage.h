// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/panel/PanelPage.h"

#include <QtCore/QTimer>

namespace demo {

/// Shows the framework's internal state, refreshed as long as the page is visible.
class StatePage : public PanelPage {
    Q_OBJECT

public:
    StatePage();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void build();
    void refresh();

    QList<QLabel *> m_values;
    QTimer m_refreshing;
};

} // namespace demo
