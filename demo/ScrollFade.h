// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

namespace demo {

/// Fades the text at the bottom of a scroll area into the background.
class ScrollFade : public QWidget {
    Q_OBJECT

public:
    static constexpr int Height = 22;

    explicit ScrollFade(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace demo
