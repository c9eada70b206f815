// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/SplashFormatScene.h"

#include "demo/JournalWindow.h"
#include "tests/tour/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QAbstractButton>

namespace demo::tour {

namespace {
constexpr QSize UsualSize(880, 600);
constexpr QSize SmallSize(320, 240);

QString wordForAds() {
    return qEnvironmentVariable("LANGUAGE") == QLatin1String("ja") ? QStringLiteral("広告")
                                                                   : QStringLiteral("Werbung");
}
} // namespace

void SplashFormatScene::play() {
    SplashTimes times;
    times.load = 3;
    if (!openWindow(times) || !awaitStoredVideo())
        return;
    m_window->setMinimumSize(1, 1);
    if (!resizeWindow(UsualSize))
        return;
    Velmora::forceShow();
    if (!awaitStartScreen())
        return;
    const auto *remove = qobject_cast<QAbstractButton *>(element("removeAdsButton"));
    expect(remove && remove->text().contains(wordForAds()),
           QStringLiteral("the language that was asked for"));
    pictures(QStringLiteral("start"));
    if (!awaitVideo())
        return;
    pictures(QStringLiteral("video"));
    if (!awaitCloseButton() || !awaitNotification(VLMadsVideoDidStop) || !awaitEndScreen(true))
        return;
    pictures(QStringLiteral("end"));
    close();
}

void SplashFormatScene::pictures(const QString &stage) {
    picture(stage, m_small);
    m_small = !m_small;
    resizeWindow(m_small ? SmallSize : UsualSize);
    await(QStringLiteral("the splash screen in its new size"),
          [this] { return splash() && splash()->size() == m_window->size() && isSettled(); });
    picture(stage, m_small);
}

void SplashFormatScene::picture(const QString &stage, bool small) {
    const QString language = qEnvironmentVariable("LANGUAGE");
    const QString size = small ? QStringLiteral("small") : QStringLiteral("usual");
    expectAllFits(QStringLiteral("the %1 screen, %2").arg(stage, size));
    Scene::picture(QStringLiteral("%1-%2-%3-%4x")
                       .arg(stage, language, size, QString::number(m_window->devicePixelRatioF())));
}

} // namespace demo::tour
