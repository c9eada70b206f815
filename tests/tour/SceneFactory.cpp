// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/SceneFactory.h"

#include "tests/tour/CachedBannerScene.h"
#include "tests/tour/DefaultVideoScene.h"
#include "tests/tour/FirstSplashScene.h"
#include "tests/tour/FirstStartScene.h"
#include "tests/tour/HighDensityScene.h"
#include "tests/tour/HouseBannerScene.h"
#include "tests/tour/NextStartScene.h"
#include "tests/tour/RestyledSplashScene.h"
#include "tests/tour/SeveralWindowsScene.h"
#include "tests/tour/SplashFormatScene.h"

#include <QtCore/QHash>

namespace demo::tour {

const QString SceneFactory::FirstStart = QStringLiteral("first-start");
const QString SceneFactory::NextStart = QStringLiteral("next-start");
const QString SceneFactory::HouseBanner = QStringLiteral("house-banner");
const QString SceneFactory::CachedBanner = QStringLiteral("cached-banner");
const QString SceneFactory::HighDensity = QStringLiteral("high-density");
const QString SceneFactory::FirstSplash = QStringLiteral("first-splash");
const QString SceneFactory::SeveralWindows = QStringLiteral("several-windows");
const QString SceneFactory::DefaultVideo = QStringLiteral("default-video");
const QString SceneFactory::RestyledSplash = QStringLiteral("restyled-splash");
const QString SceneFactory::SplashFormat = QStringLiteral("splash-format");

namespace {

template<class Kind>
std::unique_ptr<Scene> makeScene(DemoApplication &demo, const TourOptions &options) {
    return std::make_unique<Kind>(demo, options);
}

} // namespace

std::unique_ptr<Scene> SceneFactory::make(DemoApplication &demo, const TourOptions &options) {
    using Maker = std::unique_ptr<Scene> (*)(DemoApplication &, const TourOptions &);
    static const QHash<QString, Maker> makers{
        {FirstStart, &makeScene<FirstStartScene>},
        {NextStart, &makeScene<NextStartScene>},
        {HouseBanner, &makeScene<HouseBannerScene>},
        {CachedBanner, &makeScene<CachedBannerScene>},
        {HighDensity, &makeScene<HighDensityScene>},
        {FirstSplash, &makeScene<FirstSplashScene>},
        {SeveralWindows, &makeScene<SeveralWindowsScene>},
        {DefaultVideo, &makeScene<DefaultVideoScene>},
        {RestyledSplash, &makeScene<RestyledSplashScene>},
        {SplashFormat, &makeScene<SplashFormatScene>},
    };
    const Maker maker = makers.value(options.scene);
    return maker ? maker(demo, options) : nullptr;
}

} // namespace demo::tour
