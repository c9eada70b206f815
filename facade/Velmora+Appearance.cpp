#include <Velmora/Velmora.h>

#include "splash/SplashScreenPresenter.h"

#include <QtGui/QColor>
#include <QtGui/QImage>

#include <cmath>

using velmora::SplashScreenController;

namespace {

template<class Value>
bool isUsable(const Value &value) {
    if constexpr (std::is_same_v<Value, QImage>)
        return !value.isNull();
    else if constexpr (std::is_same_v<Value, QColor>)
        return value.isValid();
    else if constexpr (std::is_same_v<Value, double>)
        return std::isfinite(value);
    else
        return true;
}

// Restyles every splash screen there is; false when the value is none.
template<class Parameter, class Value>
bool restyle(void (SplashScreenController::*setter)(Parameter), const Value &value) {
    if (!isUsable(value)) {
        Velmora::LOG(QStringLiteral("ERROR"),
                     QStringLiteral("a splash screen's colour, image or length is missing"));
        return false;
    }
    // A copy: a new look may wake the host, who may add or remove windows.
    const auto controllers = Velmora::SSPresenter().SSControllers();
    for (const auto &controller : controllers)
        (controller.get()->*setter)(value);
    return true;
}

template<class Value>
void storeOption(const char *key, const Value &value) {
    Velmora::SSPresenter().splashScreenOptions()[QLatin1String(key)] = QVariant::fromValue(value);
}

template<class Parameter, class Value>
void setOption(void (SplashScreenController::*setter)(Parameter), const char *key,
               const Value &value) {
    Velmora::isInitializedSplashScreenWithLOG_WARNING();
    if (restyle(setter, value))
        storeOption(key, value);
}

} // namespace

void Velmora::setSplashScreenTopInset(double inset) {
    setOption(&SplashScreenController::setTopInset, "topInset", inset);
}

void Velmora::setSplashScreenTopInset(double inset, QWidget *window) {
    const auto controller = SSPresenter().splashScreenControllerWithWindow(window);
    if (controller && std::isfinite(inset))
        controller->setTopInset(inset);
}

void Velmora::setSplashScreenBackgroundColor(const QColor &color) {
    setOption(&SplashScreenController::setBackgroundColor, "backgroundColor", color);
}

void Velmora::setSplashScreenBackgroundImage(const QImage &image) {
    setOption(&SplashScreenController::setBackgroundImage, "backgroundImage", image);
}

void Velmora::setSplashScreenIcon(const QImage &icon) {
    setOption(&SplashScreenController::setIcon, "icon", icon);
}

void Velmora::setSplashScreenTextColor(const QColor &color) {
    setOption(&SplashScreenController::setTextColor, "textColor", color);
}

void Velmora::setSplashScreenTimerTextColor(const QColor &color) {
    setOption(&SplashScreenController::setTimerTextColor, "timerTextColor", color);
}

void Velmora::setSplashScreenTimerBackgroundColor(const QColor &color) {
    setOption(&SplashScreenController::setTimerBackgroundColor, "timerBackgroundColor", color);
}

void Velmora::setSplashScreenTimerBorderColor(const QColor &borderColor,
                                              const QColor &progressColor) {
    isInitializedSplashScreenWithLOG_WARNING();
    if (restyle(&SplashScreenController::setTimerBorderColor, borderColor))
        storeOption("timerBorderColor", borderColor);
    if (restyle(&SplashScreenController::setTimerProgressColor, progressColor))
        storeOption("timerProgressColor", progressColor);
}

void Velmora::setSplashScreenTimerBorderWidth(double borderWidth, double progressWidth) {
    isInitializedSplashScreenWithLOG_WARNING();
    if (restyle(&SplashScreenController::setTimerBorderWidth, borderWidth))
        storeOption("timerBorderWidth", borderWidth);
    if (restyle(&SplashScreenController::setTimerProgressWidth, progressWidth))
        storeOption("timerProgressWidth", progressWidth);
}

void Velmora::setSplashScreenHiddenButtonBeforeVideo(bool hidden) {
    setOption(&SplashScreenController::setHiddenButtonBeforeVideo, "hiddenButtonBeforeVideo",
              hidden);
}

void Velmora::setSplashScreenHiddenButtonAfterVideo(bool hidden) {
    setOption(&SplashScreenController::setHiddenButtonAfterVideo, "hiddenButtonAfterVideo", hidden);
}

void Velmora::setSplashScreenBackgroundImageScaling(unsigned scaling) {
    // The key that hosts know lacks a letter.
    setOption(&SplashScreenController::setBackgroundImageScaling, "backgoundImageScaling", scaling);
}

void Velmora::setSplashScreenHiddenIcon(bool hidden) {
    setOption(&SplashScreenController::setHiddenIcon, "hiddenIcon", hidden);
}

void Velmora::setSplashScreenHiddenIconAfterVideo(bool hidden) {
    setOption(&SplashScreenController::setHiddenIconAfterVideo, "hiddenIconAfterVideo", hidden);
}

void Velmora::setSplashScreenHiddenIconBeforeVideo(bool hidden) {
    setOption(&SplashScreenController::setHiddenIconBeforeVideo, "hiddenIconBeforeVideo", hidden);
}

void Velmora::setSplashScreenHiddenBackgroundImage(bool hidden) {
    setOption(&SplashScreenController::setHiddenBackgroundImage, "hiddenBackgroundImage", hidden);
}

void Velmora::setSplashScreenHiddenBackgroundImageAfterVideo(bool hidden) {
    setOption(&SplashScreenController::setHiddenBackgroundImageAfterVideo,
              "hiddenBackgroundImageAfterVideo", hidden);
}

void Velmora::setSplashScreenHiddenBackgroundImageBeforeVideo(bool hidden) {
    setOption(&SplashScreenController::setHiddenBackgroundImageBeforeVideo,
              "hiddenBackgroundImageBeforeVideo", hidden);
}
