// SPDX-License-Identifier: Apache-2.0
#include "Switches.h"

#include "HostSettings.h"
#include "Log.h"
#include "ProcessRoot.h"

#include <atomic>

namespace velmora {

namespace {

const QString AdsOffKey = QStringLiteral("adsoff");

// Atomic, because worker threads read them when they log a message.
struct ProcessSwitches {
    std::atomic<bool> debugMode = false;
    std::atomic<bool> arcMode = false;
};

std::shared_ptr<ProcessSwitches> switches() {
    return ProcessRoot::share<ProcessSwitches>();
}

} // namespace

void Switches::activateDebugMode() {
    // Log is in a lower layer and can't include this class.
    Log::setGates(&Switches::isDebugModeActivate, &Switches::isADSRemoved);
    switches()->debugMode = true;
}

bool Switches::isDebugModeActivate() {
    return switches()->debugMode;
}

void Switches::setARCToWindows(bool on) {
    switches()->arcMode = on;
}

bool Switches::isARCActivate() {
    return switches()->arcMode;
}

bool Switches::isADSRemoved() {
    return HostSettings::value(AdsOffKey).toBool();
}

void Switches::setADSRemoved(bool removed) {
    HostSettings::setValue(removed, AdsOffKey);
}

} // namespace velmora
