#include "facade/Switches.h"

#include <Velmora/Support.h>

#include "platform/ProcessRoot.h"

#include <atomic>

namespace velmora {

namespace {

const QString AdsOffKey = QStringLiteral("adsoff");

// Atomic only because messages may be logged from a worker thread.
struct ProcessSwitches {
    std::atomic<bool> debugMode = false;
    std::atomic<bool> arcMode = false;
};

std::shared_ptr<ProcessSwitches> switches() {
    return ProcessRoot::share<ProcessSwitches>();
}

} // namespace

void Switches::activateDebugMode() {
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
    return VLMObjForKey(AdsOffKey).toBool();
}

void Switches::setADSRemoved(bool removed) {
    VLMSetObjForKey(removed, AdsOffKey);
}

} // namespace velmora
