// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QAbstractButton>

namespace velmora {

/// An invisible button: it draws nothing but its focus ring. Main thread only.
class LinkArea : public QAbstractButton {
    Q_OBJECT

public:
    explicit LinkArea(QWidget *parent = nullptr);

    /// Whether a click opens something. Only then is the mouse pointer a hand over the area, and
    /// only then does Tab reach it. Default: no.
    void setLeadsSomewhere(bool leads);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace velmora
