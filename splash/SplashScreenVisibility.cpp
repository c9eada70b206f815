// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenVisibility.h"

#include "Animator.h"

namespace velmora {

namespace {

using Conditions = SplashScreenVisibility::Conditions;
using Rule = bool (*)(const Conditions &);

bool no(const Conditions &) {
    return false;
}

bool yes(const Conditions &) {
    return true;
}

bool withStart(const Conditions &now) {
    return !now.withoutSplash;
}

bool withPicture(const Conditions &now) {
    return now.hasInterstitial;
}

bool withAdToCome(const Conditions &now) {
    return !now.withoutSplash && now.isAdExpected;
}

bool iconBefore(const Conditions &now) {
    return !now.withoutSplash && !now.leftOut.icon && !now.leftOut.iconBeforeVideo;
}

bool iconAfter(const Conditions &now) {
    return !now.hasInterstitial && !now.leftOut.icon && !now.leftOut.iconAfterVideo;
}

bool backgroundBefore(const Conditions &now) {
    return !now.withoutSplash && !now.leftOut.backgroundImage &&
           !now.leftOut.backgroundImageBeforeVideo;
}

bool backgroundAfter(const Conditions &now) {
    return !now.hasInterstitial && !now.leftOut.backgroundImage &&
           !now.leftOut.backgroundImageAfterVideo;
}

bool buttonBefore(const Conditions &now) {
    return !now.withoutSplash && !now.leftOut.buttonBeforeVideo;
}

bool buttonAfter(const Conditions &now) {
    return !now.hasInterstitial && !now.leftOut.buttonAfterVideo;
}

struct Row {
    QWidget *(*element)(const SplashScreenOutlets &);
    Rule start;
    Rule video;
    Rule stillWithCountdown;
    Rule videoWithCloseButton;
    Rule end;
};

template<auto Outlet>
QWidget *element(const SplashScreenOutlets &outlets) {
    return outlets.*Outlet;
}

using Outlets = SplashScreenOutlets;

// clang-format off
constexpr Row Rows[] = {
    // element                                  start             video  still        + button  end
    // First, because it gets the focus of what is hidden.
    {element<&Outlets::closeButton>,            no,               no,    no,          yes,      yes},
    {element<&Outlets::bgImage>,                backgroundBefore, no,    no,          no,       backgroundAfter},
    {element<&Outlets::iconImageView>,          iconBefore,       no,    no,          no,       iconAfter},
    {element<&Outlets::lablesView>,             withStart,        no,    no,          no,       no},
    {element<&Outlets::removeAdsButton>,        buttonBefore,     no,    no,          no,       buttonAfter},
    {element<&Outlets::splashScreenPlayerView>, no,               yes,   no,          yes,      no},
    {element<&Outlets::timeVideoLabel>,         no,               yes,   yes,         no,       no},
    {element<&Outlets::videoProgressView>,      no,               yes,   yes,         no,       no},
    {element<&Outlets::soundButton>,            no,               yes,   no,          yes,      no},
    {element<&Outlets::removeAdsImageButton>,   no,               yes,   yes,         yes,      no},
    {element<&Outlets::interstitialImage>,      no,               no,    withPicture, no,       withPicture},
    {element<&Outlets::adMark>,                 withAdToCome,     yes,   withPicture, yes,      withPicture},
};
// clang-format on

Rule ruleOf(const Row &row, SplashScreenVisibility::Phase phase) {
    switch (phase) {
    case SplashScreenVisibility::Phase::Start:
        return row.start;
    case SplashScreenVisibility::Phase::Video:
        return row.video;
    case SplashScreenVisibility::Phase::StillWithCountdown:
        return row.stillWithCountdown;
    case SplashScreenVisibility::Phase::VideoWithCloseButton:
        return row.videoWithCloseButton;
    case SplashScreenVisibility::Phase::End:
        return row.end;
    }
    return no;
}

} // namespace

void SplashScreenVisibility::apply(const SplashScreenOutlets &outlets, Phase phase,
                                   const Conditions &conditions) {
    for (const Row &row : Rows) {
        QWidget *view = row.element(outlets);
        if (!view)
            continue;
        const Rule isVisible = ruleOf(row, phase);
        if (phase == Phase::Start && isVisible == no)
            Animator::setHiddenNow(view, true);
        else
            Animator::setHidden(view, !isVisible(conditions));
    }
}

} // namespace velmora
