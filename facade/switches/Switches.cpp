// SPDX-License-Identifier: Apache-2.0
#include "Switches.h"

#include "AdsOffMarker.h"
#include "HostSettings.h"
#include "Log.h"
#include "ProcessRoot.h"

#include <atomic>
#include <mutex>

namespace velmora {

namespace {

const QString AdsOffKey = QStringLiteral("adsoff");

// Worker threads read them when they log a message.
struct ProcessSwitches {
    std::atomic<bool> debugMode = false;
    std::atomic<bool> arcMode = false;
    std::atomic<bool> hasToldOfMarker = false;
    std::mutex mutex;
    QString markedPath; // where the marker has been seen or made
};

std::shared_ptr<ProcessSwitches> switches() {
    return ProcessRoot::share<ProcessSwitches>();
}

// Earlier versions made no marker, and a later application name has another path.
void makeMissingMarker() {
    const auto process = switches();
    const std::lock_guard lock(process->mutex);
    const QString path = AdsOffMarker::path();
    if (path == process->markedPath)
        return;
    process->markedPath = path;
    // Another process may allow ads again at this moment.
    if (!AdsOffMarker::exists() && AdsOffMarker::set(true) &&
        !HostSettings::value(AdsOffKey).toBool())
        AdsOffMarker::set(false);
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
    if (HostSettings::value(AdsOffKey).toBool()) {
        makeMissingMarker();
        return true;
    }
    if (!AdsOffMarker::exists())
        return false;
    if (!switches()->hasToldOfMarker.exchange(true))
        Log::writeAlways(QStringLiteral("ads are off, though the settings do not say so: %1 exists")
                             .arg(AdsOffMarker::path()));
    return true;
}

bool Switches::setADSRemoved(bool removed) {
    // Ads stay off when the process is killed between the two.
    const bool isMarked = removed && AdsOffMarker::set(true);
    const bool isStored = HostSettings::setValue(removed, AdsOffKey);
    if (removed)
        return isMarked || isStored;
    return AdsOffMarker::set(false) && isStored;
}

} // namespace velmora
