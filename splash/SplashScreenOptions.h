// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenStyle.h"

#include <Velmora/Appearance.h>

#include <QtCore/QSet>
#include <QtCore/QVariantMap>

namespace velmora {

/// The appearance of all splash screens: the values of SplashScreenStyle's options, and the preset
/// for the colours that the host has not set. Main thread only.
class SplashScreenOptions {
public:
    /// By the keys of SplashScreenStyle: what the host has set, else the default. Holds no invalid
    /// values.
    QVariantMap &values() { return m_values; }

    /// Stores a value that the host has set. No preset replaces it.
    void set(const SplashScreenOption &option, const QVariant &value);

    Appearance appearance() const { return m_appearance; }
    void setAppearance(Appearance appearance) { m_appearance = appearance; }

    /// Gives a splash screen all values.
    void applyAll(SplashScreenController &splash) const;
    /// Gives a splash screen the colours of the preset.
    void applyPreset(SplashScreenController &splash) const;

private:
    bool isDarkIn(const QWidget *window) const;

    QVariantMap m_values = SplashScreenStyle::standardOptions();
    QSet<QString> m_setByHost; // keys
    Appearance m_appearance = Appearance::Light;
};

} // namespace velmora
