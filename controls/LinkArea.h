// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QAbstractButton>

namespace velmora {

/// The area of a splash screen that opens the ad's link when it is clicked: a button that draws
/// nothing but its focus ring. Main thread only.
class LinkArea : public QAbstractButton {
    Q_OBJECT

public:
    explicit LinkArea(QWidget *parent = nullptr);

    /// Sets whether a click opens something. Only then the mouse pointer is a hand over the area,
    /// and Tab reaches it. Default: false.
    void setLinkEnabled(bool enabled);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace velmora
