// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdArea.h"

#include <functional>

namespace velmora {

/// The area of a splash screen that opens the ad's link when the ad in it is clicked: a button that
/// draws nothing but its focus ring, around the ad. Main thread only.
class LinkArea : public AdArea {
    Q_OBJECT

public:
    explicit LinkArea(QWidget *parent = nullptr);

    /// Sets whether a click opens something. Only then the mouse pointer is a hand over the ad,
    /// and Tab reaches the area. Default: false.
    void setLinkEnabled(bool enabled);

    /// Sets where the ad's picture or video is now, in the area's coordinates; nothing without one.
    /// It is called whenever that matters. Default: the whole area.
    void setAdRect(std::function<QRect()> rect);
    QRect adRect() const override;
    /// Gives the mouse pointer its shape. To be called when the ad has appeared below it.
    void updateCursor();

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void updateCursor(const QPoint &pointer);

    std::function<QRect()> m_adRect;
    bool m_isLinkEnabled = false;
};

} // namespace velmora
