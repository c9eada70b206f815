// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// The soft shadow below a banner: a strip of its own beside the banner's view, so that the
/// banner's frames never repaint it. Takes no clicks. Hidden at first; whoever shows the banner
/// shows its shadow too.
class BannerShadowView : public QWidget {
    Q_OBJECT

public:
    /// A shadow for a banner's view, in the same superview. Owned by the superview.
    explicit BannerShadowView(QWidget *banner);

    /// Lies below a banner of the given frame, next to it in the order of the superview's children,
    /// whatever superview that is by now.
    void follow(const QRect &banner, int depth);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPointer<QWidget> m_banner;
};

} // namespace velmora
