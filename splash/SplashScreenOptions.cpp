// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenOptions.h"

namespace velmora {

void SplashScreenOptions::set(const SplashScreenOption &option, const QVariant &value) {
    m_values[option.keyText()] = value;
    m_setByHost.insert(option.keyText());
}

void SplashScreenOptions::applyAll(SplashScreenController &splash) const {
    SplashScreenStyle::restoreAll(splash, m_values);
    applyPreset(splash);
}

void SplashScreenOptions::applyPreset(SplashScreenController &splash) const {
    const bool isDark = isDarkIn(splash.window());
    for (const SplashScreenOption &option : SplashScreenStyle::options()) {
        if (option.darkValue && !m_setByHost.contains(option.keyText()))
            option.set(splash, isDark ? option.darkValue() : m_values.value(option.keyText()));
    }
}

bool SplashScreenOptions::isDarkIn(const QWidget *window) const {
    if (m_appearance != Appearance::FollowsHost || !window)
        return m_appearance == Appearance::Dark;
    const QPalette palette = window->palette();
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

} // namespace velmora
