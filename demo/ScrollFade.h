// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

namespace demo {

/// Lets text that scrolls out at the bottom fade into the paper, instead of cutting its lines.
class ScrollFade : public QWidget {
    Q_OBJECT

public:
    static constexpr int Height = 22;

    explicit ScrollFade(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace demo
