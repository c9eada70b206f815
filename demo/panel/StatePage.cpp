// SPDX-License-Identifier: Apache-2.0
#include "demo/panel/StatePage.h"

#include "demo/Theme.h"
#include "demo/panel/StateReader.h"

#include <QtWidgets/QLabel>

namespace demo {

namespace {
constexpr int RefreshIntervalMs = 250;
}

StatePage::StatePage() {
    m_refreshing.setInterval(RefreshIntervalMs);
    connect(&m_refreshing, &QTimer::timeout, this, &StatePage::refresh);
}

void StatePage::build() {
    for (const StateReader::Fact &fact : StateReader::read()) {
        if (fact.isGroup) {
            addSection(fact.name);
            continue;
        }
        auto *value = new QLabel;
        value->setFont(theme::text(13, QFont::Medium));
        // A long value is elided; it must not make the panel wider.
        value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        addRow(fact.name, value);
        m_values.append(value);
    }
    finish();
}

void StatePage::refresh() {
    if (m_values.isEmpty())
        build();
    int row = 0;
    for (const StateReader::Fact &fact : StateReader::read()) {
        if (fact.isGroup)
            continue;
        QLabel *value = m_values.at(row++);
        const int room = qMax(value->width(), 1);
        value->setText(value->fontMetrics().elidedText(fact.value, Qt::ElideRight, room));
        value->setToolTip(fact.value);
    }
}

void StatePage::showEvent(QShowEvent *event) {
    PanelPage::showEvent(event);
    refresh();
    m_refreshing.start();
}

void StatePage::hideEvent(QHideEvent *event) {
    m_refreshing.stop();
    PanelPage::hideEvent(event);
}

} // namespace demo
