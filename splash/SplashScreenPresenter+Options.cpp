#include "splash/SplashScreenPresenter.h"

#include "content/AdsDownloader.h"
#include "content/AdsEventLogger.h"

#include <QtGui/QColor>
#include <QtGui/QImage>

#include <algorithm>
#include <limits>

namespace velmora {

namespace {

const QVariantMap &defaults() {
    static const QVariantMap values{
        {QStringLiteral("topInset"), 0},
        {QStringLiteral("textColor"), QColor(Qt::black)},
        {QStringLiteral("backgroundColor"), QColor(Qt::white)},
        // The key that hosts know lacks a letter.
        {QStringLiteral("backgoundImageScaling"), 0u},
        {QStringLiteral("hiddenButtonAfterVideo"), false},
        {QStringLiteral("hiddenButtonBeforeVideo"), false},
        {QStringLiteral("timerTextColor"), QColor(Qt::black)},
        {QStringLiteral("timerBackgroundColor"), QColor(Qt::white)},
        {QStringLiteral("timerBorderColor"), QColor::fromRgbF(0.5f, 0.5f, 0.5f)},
        {QStringLiteral("timerProgressColor"), QColor::fromRgbF(1 / 3.f, 1 / 3.f, 1 / 3.f)},
        {QStringLiteral("timerBorderWidth"), 2},
        {QStringLiteral("timerProgressWidth"), 4},
        {QStringLiteral("hiddenIcon"), false},
        {QStringLiteral("hiddenIconAfterVideo"), false},
        {QStringLiteral("hiddenIconBeforeVideo"), false},
        {QStringLiteral("hiddenBackgroundImage"), false},
        {QStringLiteral("hiddenBackgroundImageAfterVideo"), false},
        {QStringLiteral("hiddenBackgroundImageBeforeVideo"), false},
    };
    return values;
}

// Truncated toward zero, where the variant's own conversion would round.
double wholePart(const QVariant &number) {
    constexpr double farthest = std::numeric_limits<int>::max();
    return double(int(std::clamp(number.toDouble(), -farthest, farthest)));
}

} // namespace

SplashScreenPresenter::SplashScreenPresenter()
    : m_splashScreenStandartDuration(m_loadTime + VideoSeconds),
      m_downloader(AdsDownloader::sharedInstance()),
      m_logger(&AdsEventLogger::sharedInstance()),
      m_splashScreenOptions(defaults()) {}

SplashScreenPresenter::~SplashScreenPresenter() = default;

std::shared_ptr<SplashScreenPresenter> SplashScreenPresenter::make() {
    return std::shared_ptr<SplashScreenPresenter>(new SplashScreenPresenter);
}

void SplashScreenPresenter::setAllSplashScreenParamsFor(const Controller &controller) const {
    if (!controller)
        return;
    SplashScreenController &to = *controller;
    const auto value = [this](const char *key) {
        return m_splashScreenOptions.value(QLatin1String(key));
    };
    const auto color = [&value](const char *key) { return value(key).value<QColor>(); };
    const auto image = [&value](const char *key) { return value(key).value<QImage>(); };
    const auto flag = [&value](const char *key) { return value(key).toBool(); };
    const auto width = [&value](const char *key) { return double(value(key).toFloat()); };

    to.setTopInset(wholePart(value("topInset")));
    to.setIcon(image("icon"));
    to.setTextColor(color("textColor"));
    to.setBackgroundColor(color("backgroundColor"));
    to.setBackgroundImage(image("backgroundImage"));
    to.setBackgroundImageScaling(value("backgoundImageScaling").toUInt());
    to.setHiddenButtonAfterVideo(flag("hiddenButtonAfterVideo"));
    to.setHiddenButtonBeforeVideo(flag("hiddenButtonBeforeVideo"));
    to.setTimerTextColor(color("timerTextColor"));
    to.setTimerBackgroundColor(color("timerBackgroundColor"));
    to.setTimerBorderColor(color("timerBorderColor"));
    to.setTimerProgressColor(color("timerProgressColor"));
    to.setTimerBorderWidth(width("timerBorderWidth"));
    to.setTimerProgressWidth(width("timerProgressWidth"));
    to.setHiddenIcon(flag("hiddenIcon"));
    to.setHiddenIconAfterVideo(flag("hiddenIconAfterVideo"));
    to.setHiddenIconBeforeVideo(flag("hiddenIconBeforeVideo"));
    to.setHiddenBackgroundImage(flag("hiddenBackgroundImage"));
    to.setHiddenBackgroundImageAfterVideo(flag("hiddenBackgroundImageAfterVideo"));
    to.setHiddenBackgroundImageBeforeVideo(flag("hiddenBackgroundImageBeforeVideo"));
}

} // namespace velmora
