// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "BannerImageView.h"
#include "PlayButton.h"

#include <QtCore/QObject>

namespace velmora {

/// Lets a banner stand still where motion is reduced: each banner stands on its first picture, and
/// one with an animation has a button that plays it. The picture owns this and the button. Main
/// thread only.
class BannerMotion : public QObject {
    Q_OBJECT

public:
    explicit BannerMotion(BannerImageView *picture);

    /// Hidden unless it is needed.
    PlayButton *button() const { return m_button; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Begins anew, with another picture or after the user's setting has changed.
    void reset();
    void motionChanged();
    void setPlaying(bool playing);

    BannerImageView *m_picture;
    PlayButton *m_button;
};

} // namespace velmora
