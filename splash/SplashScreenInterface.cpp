// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenInterface.h"

#include "ButtonAccessible.h"
#include "ColoredView.h"
#include "InterfaceImage.h"
#include "InterfaceLoader.h"
#include "TimeProgressAccessible.h"

#include <Velmora/Support.h>

#include <algorithm>
#include <initializer_list>

namespace velmora {

namespace {

constexpr const char *ZPosition = "zPosition";

void setZPosition(QWidget *view, int position) {
    if (view)
        view->setProperty(ZPosition, position);
}

// Stacks the children of a view by their z positions; children of the same position keep their
// order.
void restack(QWidget *view) {
    QList<QWidget *> children =
        view->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    std::stable_sort(children.begin(), children.end(), [](QWidget *one, QWidget *other) {
        return one->property(ZPosition).toInt() < other->property(ZPosition).toInt();
    });
    for (QWidget *child : std::as_const(children)) {
        if (!child->isWindow())
            child->raise();
    }
}

template<class T>
void registerClass(const char *name) {
    InterfaceLoader::registerClass<T>(QString::fromLatin1(name));
}

QString text(const char *key) {
    return VLMStringFromKey(QString::fromLatin1(key));
}

} // namespace

QWidget *SplashScreenInterface::load() {
    // Before Qt makes accessible interfaces of the elements, which a text, for example, causes.
    ButtonAccessible::install();
    TimeProgressAccessible::install();
    registerClass<ColoredView>("ColoredView");
    registerClass<ImageView>("ImageView");
    registerClass<VideoView>("VideoView");
    registerClass<LinkArea>("LinkArea");
    registerClass<TextField>("TextField");
    registerClass<TimeProgressView>("TimeProgressView");
    registerClass<SplashScreenLabelsView>("SplashScreenLabelsView");
    registerClass<RemoveAdsButton>("RemoveAdsButton");
    registerClass<AdMark>("AdMark");
    registerClass<CloseButtonCell>("CloseButtonCell");
    registerClass<ToggleButtonCell>("ToggleButtonCell");
    return InterfaceLoader::load(QStringLiteral("SplashScreenController"));
}

void SplashScreenInterface::prepare(QWidget *root, const SplashScreenOutlets &outlets) {
    setImages(outlets);
    setTexts(outlets);
    setAccessibleNames(root, outlets);
    setStackingOrder(root, outlets);
    hideVideoElements(outlets);
}

void SplashScreenInterface::setImages(const SplashScreenOutlets &outlets) {
    if (outlets.closeButton)
        outlets.closeButton->setIcon(InterfaceImage::named(QStringLiteral("ads_close_button")));
    if (ToggleButtonCell *sound = outlets.soundButton) {
        sound->setImage(InterfaceImage::named(QStringLiteral("ads_sound_on")));
        sound->setAlternateImage(InterfaceImage::named(QStringLiteral("ads_sound_off")));
    }
}

void SplashScreenInterface::setTexts(const SplashScreenOutlets &outlets) {
    if (SplashScreenLabelsView *labels = outlets.lablesView) {
        if (labels->textCommentFieldFirst())
            labels->textCommentFieldFirst()->setText(text("ApplicationWillBeLaunchedTextFirst"));
        if (labels->textCommentFieldSecond())
            labels->textCommentFieldSecond()->setText(text("ApplicationWillBeLaunchedTextSecond"));
    }
    const QString removeAds = text("RemoveAdsText");
    if (outlets.removeAdsButton)
        outlets.removeAdsButton->setText(removeAds);
    // One word a line.
    if (RemoveAdsButton *button = outlets.removeAdsImageButton)
        button->setText(removeAds.split(QLatin1Char(' ')).join(QLatin1Char('\n')).toUpper());
}

void SplashScreenInterface::setAccessibleNames(QWidget *root, const SplashScreenOutlets &outlets) {
    const auto name = [](QWidget *element, const char *key) {
        if (element)
            element->setAccessibleName(text(key));
    };
    name(root, "AdvertisementText");
    for (TimeProgressView *ring : outlets.rings())
        name(ring, "CountdownText");
    name(outlets.closeButton, "CloseText");
    name(outlets.soundButton, "MuteText");
    name(outlets.urlButton, "OpenAdText");
    name(outlets.removeAdsImageButton, "RemoveAdsText");
}

void SplashScreenInterface::setStackingOrder(QWidget *root, const SplashScreenOutlets &outlets) {
    if (SplashScreenLabelsView *labels = outlets.lablesView) {
        setZPosition(labels->timeLabel(), 1);
        restack(labels);
    }
    setZPosition(outlets.timeVideoLabel, 2);
    setZPosition(outlets.adMark, 2);
    setZPosition(outlets.closeButton, 1);
    setZPosition(outlets.removeAdsImageButton, 2);
    setZPosition(outlets.videoProgressView, 2);
    setZPosition(outlets.removeAdsButton, 2);
    setZPosition(outlets.soundButton, 2);
    restack(root);
}

void SplashScreenInterface::hideVideoElements(const SplashScreenOutlets &outlets) {
    for (QWidget *element : std::initializer_list<QWidget *>{
             outlets.adMark, outlets.closeButton, outlets.splashScreenPlayerView,
             outlets.timeVideoLabel, outlets.videoProgressView, outlets.soundButton}) {
        if (element)
            element->hide();
    }
}

} // namespace velmora
