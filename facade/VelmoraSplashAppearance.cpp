// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Velmora.h>

#include "ProcessRoot.h"
#include "Refusal.h"
#include "SplashScreenPresenter.h"
#include "SplashScreenStyle.h"
#include "WindowProxy.h"

#include <QtGui/QColor>
#include <QtGui/QImage>

#include <cmath>

using velmora::ProcessRoot;
using velmora::Refusal;
using velmora::SplashScreenOption;
using velmora::SplashScreenStyle;
using velmora::WindowProxy;

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

// Applies to every splash screen, also to those that are made later.
template<class Value>
void setOption(const SplashScreenOption &option, const Value &value) {
    if (ProcessRoot::hasEnded())
        return;
    if (!isUsable(value)) {
        const QString text = QStringLiteral("a splash screen's colour, image or length is missing");
        Velmora::LOG(QStringLiteral("ERROR"), text);
        Refusal::signal(Refusal::Request::SetOption, Refusal::Reason::InvalidValue, text);
        return;
    }
    const QVariant exact = QVariant::fromValue(value);
    // A copy: the change may run code of the host, which may add or remove windows.
    const auto controllers = Velmora::SSPresenter().SSControllers();
    for (const auto &controller : controllers)
        option.set(*controller, exact);
    Velmora::SSPresenter().storeOption(option, exact);
}

// The operation of one option. Logs a warning first, see
// isInitializedSplashScreenWithLOG_WARNING().
template<class Value>
void warnAndSetOption(const SplashScreenOption &option, const Value &value) {
    Velmora::isInitializedSplashScreenWithLOG_WARNING();
    setOption(option, value);
}

} // namespace

void Velmora::setSplashScreenAppearance(Appearance appearance) {
    isInitializedSplashScreenWithLOG_WARNING();
    if (!ProcessRoot::hasEnded())
        SSPresenter().setAppearance(appearance);
}

void Velmora::setSplashScreenTopInset(double inset) {
    warnAndSetOption(SplashScreenStyle::option("topInset"), inset);
}

void Velmora::setSplashScreenTopInset(double inset, QWidget *window) {
    if (ProcessRoot::hasEnded())
        return;
    const auto controller = SSPresenter().splashScreenControllerWithWindow(window);
    if (!controller)
        Refusal::report(Refusal::Request::SetOption, Refusal::Reason::NotAdded,
                        QStringLiteral("top inset not set: the window has no splash screen"));
    else if (!std::isfinite(inset))
        Refusal::report(Refusal::Request::SetOption, Refusal::Reason::InvalidValue,
                        QStringLiteral("a top inset must be a finite number"));
    else
        controller->setTopInset(inset);
}

void Velmora::setSplashScreenTopInset(double inset, QWindow *window) {
    if (!ProcessRoot::hasEnded())
        setSplashScreenTopInset(inset, WindowProxy::existingWidgetFor(window));
}

void Velmora::setSplashScreenBackgroundColor(const QColor &color) {
    warnAndSetOption(SplashScreenStyle::option("backgroundColor"), color);
}

void Velmora::setSplashScreenBackgroundImage(const QImage &image) {
    warnAndSetOption(SplashScreenStyle::option("backgroundImage"), image);
}

void Velmora::setSplashScreenIcon(const QImage &icon) {
    warnAndSetOption(SplashScreenStyle::option("icon"), icon);
}

void Velmora::setSplashScreenTextColor(const QColor &color) {
    warnAndSetOption(SplashScreenStyle::option("textColor"), color);
}

void Velmora::setSplashScreenTimerTextColor(const QColor &color) {
    warnAndSetOption(SplashScreenStyle::option("timerTextColor"), color);
}

void Velmora::setSplashScreenTimerBackgroundColor(const QColor &color) {
    warnAndSetOption(SplashScreenStyle::option("timerBackgroundColor"), color);
}

void Velmora::setSplashScreenTimerBorderColor(const QColor &borderColor,
                                              const QColor &progressColor) {
    isInitializedSplashScreenWithLOG_WARNING();
    setOption(SplashScreenStyle::option("timerBorderColor"), borderColor);
    setOption(SplashScreenStyle::option("timerProgressColor"), progressColor);
}

void Velmora::setSplashScreenTimerBorderWidth(double borderWidth, double progressWidth) {
    isInitializedSplashScreenWithLOG_WARNING();
    setOption(SplashScreenStyle::option("timerBorderWidth"), borderWidth);
    setOption(SplashScreenStyle::option("timerProgressWidth"), progressWidth);
}

void Velmora::setSplashScreenHiddenButtonBeforeVideo(bool hidden) {
    warnAndSetOption(SplashScreenStyle::option("hiddenButtonBeforeVideo"), hidden);
}

void Velmora::setSplashScreenHiddenButtonAfterVideo(bool hidden) {
    warnAndSetOption(SplashScreenStyle::option("hiddenButtonAfterVideo"), hidden);
}

void Velmora::setSplashScreenBackgroundImageScaling(unsigned scaling) {
    warnAndSetOption(SplashScreenStyle::option("backgoundImageScaling"), scaling);
}

void Velmora::setSplashScreenHiddenIcon(bool hidden) {
    warnAndSetOption(SplashScreenStyle::option("hiddenIcon"), hidden);
}

void Velmora::setSplashScreenHiddenIconAfterVideo(bool hidden) {
    warnAndSetOption(SplashScreenStyle::option("hiddenIconAfterVideo"), hidden);
}

void Velmora::setSplashScreenHiddenIconBeforeVideo(bool hidden) {
    warnAndSetOption(SplashScreenStyle::option("hiddenIconBeforeVideo"), hidden);
}

void Velmora::setSplashScreenHiddenBackgroundImage(bool hidden) {
    warnAndSetOption(SplashScreenStyle::option("hiddenBackgroundImage"), hidden);
}

void Velmora::setSplashScreenHiddenBackgroundImageAfterVideo(bool hidden) {
    warnAndSetOption(SplashScreenStyle::option("hiddenBackgroundImageAfterVideo"), hidden);
}

void Velmora::setSplashScreenHiddenBackgroundImageBeforeVideo(bool hidden) {
    warnAndSetOption(SplashScreenStyle::option("hiddenBackgroundImageBeforeVideo"), hidden);
}
