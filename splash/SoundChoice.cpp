// SPDX-License-Identifier: Apache-2.0
#include "SoundChoice.h"

#include <Velmora/UserDefaults.h>

namespace velmora {

namespace {

const QString Key = QStringLiteral("splashScreenMuted");

} // namespace

std::optional<bool> SoundChoice::isMuted() {
    const QVariant stored = UserDefaults::standard().object(Key);
    return stored.isValid() ? std::optional(stored.toBool()) : std::nullopt;
}

void SoundChoice::storeMuted(bool muted) {
    UserDefaults::standard().setObject(muted, Key);
}

} // namespace velmora
