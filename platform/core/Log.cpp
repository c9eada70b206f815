// SPDX-License-Identifier: Apache-2.0
#include "Log.h"

#include <atomic>

Q_LOGGING_CATEGORY(velmoraLog, "velmora", QtDebugMsg)

namespace velmora {

namespace {
std::atomic<Log::Gate> s_isOn = nullptr;
std::atomic<Log::Gate> s_isSilenced = nullptr;
} // namespace

void Log::setGates(Gate isOn, Gate isSilenced) {
    s_isSilenced = isSilenced;
    s_isOn = isOn;
}

void Log::write(const QString &message) {
    const Gate isOn = s_isOn;
    if (isOn && isOn() && !s_isSilenced.load()())
        writeAlways(message);
}

// Past the category's filter: debug messages of all categories are often switched off by rules that
// the host's developer has not written.
void Log::writeAlways(const QString &message) {
    const Gate isOn = s_isOn;
    if (isOn && isOn())
        QMessageLogger(nullptr, 0, nullptr, velmoraLog().categoryName()).debug().noquote()
            << message;
}

} // namespace velmora
