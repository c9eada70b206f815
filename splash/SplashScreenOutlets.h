// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdMark.h"
#include "CloseButtonCell.h"
#include "ImageView.h"
#include "LayoutConstraint.h"
#include "LinkArea.h"
#include "RemoveAdsButton.h"
#include "SplashScreenLabelsView.h"
#include "TextField.h"
#include "TimeProgressView.h"
#include "ToggleButtonCell.h"
#include "VideoView.h"

#include <QtCore/QList>
#include <QtCore/QPointer>

namespace velmora {

/// The elements of a splash screen's view, by their names in the interface resource. An element
/// is null when the resource lacks it, and once it has been destroyed.
struct SplashScreenOutlets {
    QPointer<VideoView> splashScreenPlayerView;
    QPointer<SplashScreenLabelsView> lablesView;
    QPointer<ImageView> iconImageView;
    QPointer<ImageView> bgImage;
    QPointer<ImageView> interstitialImage;
    QPointer<TextField> timeVideoLabel;
    QPointer<TimeProgressView> videoProgressView;
    QPointer<LinkArea> urlButton;
    QPointer<AdMark> adMark;
    QPointer<CloseButtonCell> closeButton;
    QPointer<RemoveAdsButton> removeAdsButton;
    QPointer<RemoveAdsButton> removeAdsImageButton;
    QPointer<ToggleButtonCell> soundButton;

    /// How far the countdown texts lie above the middle of their rings, points: on the start
    /// screen, and over the video.
    LayoutConstraintPtr splashTimerConstraint;
    LayoutConstraintPtr spashTimerConstraint1;

    /// Finds the elements in a loaded view; a missing one is logged.
    static SplashScreenOutlets of(QWidget *root);

    /// The countdown text and the ring of the start screen; null when missing.
    TextField *timeLabel() const;
    TimeProgressView *timeProgressView() const;
    /// The rings of the start screen and over the video, without nulls.
    QList<TimeProgressView *> rings() const;
};

} // namespace velmora
