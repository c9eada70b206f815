// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TextField.h"

#include <QtGui/QPixmap>

namespace velmora {

/// Says in the user's language that a picture or video is an ad: "Ad", or "Ad · 4" while seconds
/// are counted down. White text on a dark rounded rectangle, whose contrast is at least 4.5:1 on
/// any picture. A click on it does nothing; in particular it does not open the ad. Main thread
/// only.
class AdMark : public TextField {
    Q_OBJECT

public:
    explicit AdMark(QWidget *parent = nullptr);

    /// @param seconds what is counted down, as the user reads it; empty for none. Default: empty
    void setSeconds(const QString &seconds);

    /// Room for the text. It depends on the number of digits, not on which digits they are.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    /// Drawn once and kept: it is redrawn with every frame of the ad behind it.
    QPixmap m_face;
    QString m_faceText;
    QFont m_faceFont;
};

} // namespace velmora
