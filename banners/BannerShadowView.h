// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// The soft shadow below a banner. It is a widget of its own beside the banner's view, so that the
/// frames of the banner do not repaint it. Takes no clicks. Hidden at first; the banner's
/// controller shows and hides it with the banner.
class BannerShadowView : public QWidget {
    Q_OBJECT

public:
    /// A shadow for a banner's view, in the same superview. Owned by the superview.
    explicit BannerShadowView(QWidget *banner);

    /// Moves the shadow below a banner's frame, into the superview that the banner is in, and right
    /// under the banner in the stacking order.
    void follow(const QRect &banner, int depth);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void enterSuperview();

    QPointer<QWidget> m_banner;
};

} // namespace velmora
