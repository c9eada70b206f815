// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/panel/PanelPage.h"

#include <QtCore/QTimer>

namespace demo {

/// What the framework is at, as long as somebody looks.
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
    QTimer m_clock;
};

} // namespace demo
