// SPDX-License-Identifier: Apache-2.0
#include "demo/SplashLook.h"

#include "demo/Scenery.h"

#include <Velmora/Velmora.h>

namespace demo {

namespace {

constexpr QSize PictureSize(1600, 1180);
constexpr double NightInset = 46;

Scenery nightScenery() {
    Scenery night;
    night.skyTop = QColor(0x0d, 0x17, 0x2b);
    night.skyBottom = QColor(0x2d, 0x3f, 0x5c);
    night.sunY = -1; // outside the picture
    night.ridges = {{QColor(0x22, 0x33, 0x4c), 0.42, 0.1, 0.6},
                    {QColor(0x17, 0x25, 0x3a), 0.3, 0.08, 0.45}};
    night.motif = Scenery::Motif::Pines;
    night.seed = 4;
    return night;
}

} // namespace

SplashLook SplashLook::night() {
    SplashLook look;
    look.background = QColor(0x0d, 0x17, 0x2b);
    look.text = QColor(0xf6, 0xf0, 0xe2);
    look.seconds = QColor(0xf6, 0xf0, 0xe2);
    look.disc = QColor(0x17, 0x25, 0x3a);
    look.track = QColor(0x3c, 0x4e, 0x6b);
    look.elapsed = QColor(0xf0, 0xb4, 0x5f);
    look.trackWidth = 3;
    look.elapsedWidth = 3;
    look.picture = nightScenery().picture(PictureSize);
    look.scaling = 1;
    look.topInset = NightInset;
    return look;
}

QImage SplashLook::noPicture() {
    QImage picture(1, 1, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

void SplashLook::apply() const {
    Velmora::setSplashScreenBackgroundColor(background);
    Velmora::setSplashScreenTextColor(text);
    Velmora::setSplashScreenTimerTextColor(seconds);
    Velmora::setSplashScreenTimerBackgroundColor(disc);
    Velmora::setSplashScreenTimerBorderColor(track, elapsed);
    Velmora::setSplashScreenTimerBorderWidth(trackWidth, elapsedWidth);
    Velmora::setSplashScreenTopInset(topInset);
    Velmora::setSplashScreenBackgroundImageScaling(scaling);
    Velmora::setSplashScreenBackgroundImage(picture);
}

} // namespace demo
