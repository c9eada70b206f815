// SPDX-License-Identifier: Apache-2.0
#include "Log.h"

#include "ProcessRoot.h"

#include <atomic>

Q_LOGGING_CATEGORY(velmoraLog, "velmora", QtDebugMsg)

namespace velmora {

namespace {
// Not in ProcessRoot: these only name the functions to ask, which never change once they are set.
// What the functions answer is process state, and they keep it in ProcessRoot.
std::atomic<Log::Gate> s_isOn = nullptr;
std::atomic<Log::Gate> s_isSilenced = nullptr;
} // namespace

void Log::setGates(Gate isOn, Gate isSilenced) {
    // write() reads them in the other order, so it never finds the first without the second.
    s_isSilenced = isSilenced;
    s_isOn = isOn;
}

void Log::write(const QString &message) {
    const Gate isOn = ProcessRoot::hasEnded() ? nullptr : s_isOn.load();
    if (isOn && isOn() && !s_isSilenced.load()())
        writeAlways(message);
}

// Not qCDebug(): logging rules often switch off the debug messages of all categories, and the
// host's developer has not written those rules.
void Log::writeAlways(const QString &message) {
    const Gate isOn = ProcessRoot::hasEnded() ? nullptr : s_isOn.load();
    if (isOn && isOn())
        QMessageLogger(nullptr, 0, nullptr, velmoraLog().categoryName()).debug().noquote()
            << message;
}

} // namespace velmora
