// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenOutlets.h"

#include "InterfaceLoader.h"

namespace velmora {

namespace {

template<class T>
T *outlet(QWidget *root, const char *name) {
    return InterfaceLoader::outlet<T>(root, QString::fromLatin1(name));
}

template<class T>
void bind(QPointer<T> &member, QWidget *root, const char *name) {
    member = outlet<T>(root, name);
}

} // namespace

SplashScreenOutlets SplashScreenOutlets::of(QWidget *root) {
    SplashScreenOutlets found;
    bind(found.splashScreenPlayerView, root, "splashScreenPlayerView");
    bind(found.lablesView, root, "lablesView");
    bind(found.iconImageView, root, "iconImageView");
    bind(found.bgImage, root, "bgImage");
    bind(found.interstitialImage, root, "interstitialImage");
    bind(found.timeVideoLabel, root, "timeVideoLabel");
    bind(found.videoProgressView, root, "videoProgressView");
    bind(found.urlButton, root, "urlButton");
    bind(found.adMark, root, "adMark");
    bind(found.closeButton, root, "closeButton");
    bind(found.removeAdsButton, root, "removeAdsButton");
    bind(found.removeAdsImageButton, root, "removeAdsImageButton");
    bind(found.soundButton, root, "soundButton");
    if (SplashScreenLabelsView *labels = found.lablesView) {
        labels->setTextCommentFieldFirst(outlet<TextField>(root, "textCommentFieldFirst"));
        labels->setTextCommentFieldSecond(outlet<TextField>(root, "textCommentFieldSecond"));
        labels->setTimeLabel(outlet<TextField>(root, "timeLabel"));
        labels->setTimeProgressView(outlet<TimeProgressView>(root, "timeProgressView"));
        labels->setWidthConstraint(InterfaceLoader::constraint(
            labels, QStringLiteral("widthConstraint"), LayoutConstraint::Relation::Spacing));
    }
    return found;
}

TextField *SplashScreenOutlets::timeLabel() const {
    return lablesView ? lablesView->timeLabel() : nullptr;
}

TimeProgressView *SplashScreenOutlets::timeProgressView() const {
    return lablesView ? lablesView->timeProgressView() : nullptr;
}

QList<TimeProgressView *> SplashScreenOutlets::rings() const {
    QList<TimeProgressView *> rings{timeProgressView(), videoProgressView};
    rings.removeAll(nullptr);
    return rings;
}

} // namespace velmora
