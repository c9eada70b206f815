// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ConstraintLayout.h"
#include "LayoutConstraint.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

class AdMark;
class BannerImageView;
class BannerShadowView;
class CloseButtonCell;

/// Places a banner's view: at the bottom of its superview, in the middle, as high as the host wants
/// and as wide as the picture then is. Keeps the shadow below the view, and the close
/// button and the ad mark at a size that suits the banner. Lengths are points. Main thread only.
class BannerPlacement {
public:
    /// Reads the constraints of the interface resource from a loaded view.
    void loadConstraints(QWidget *root);

    /// Keeps a view in its place in its superview from now on, and makes its shadow. Null is
    /// allowed for the controls.
    void place(QWidget *view, BannerImageView *image, CloseButtonCell *close, AdMark *mark);
    bool isPlaced() const { return m_layout != nullptr; }

    /// Makes the width follow the shape of a picture of this size.
    void setImageSize(const QSizeF &image);

    double height() const;
    void setHeight(double height);

    // Distances from the superview's bottom, above the room for the shadow, positive is up; and
    // from its centre, positive is to the right. Setting them has no effect before place().
    double bottomInset() const;
    void setBottomInset(double inset);
    double centerXInset() const;
    void setCenterXInset(double inset);

    /// Null before place().
    BannerShadowView *shadow() const;

private:
    LayoutConstraintPtr m_heightConstraint;
    LayoutConstraintPtr m_aspectConstraint;
    LayoutConstraintPtr m_bottomConstraint;
    LayoutConstraintPtr m_centerXConstraint;
    /// Its constant is the height of the shadow.
    LayoutConstraintPtr m_shadowBotOfset;
    QPointer<ConstraintLayout> m_layout;
    QPointer<BannerShadowView> m_shadow;
};

} // namespace velmora
