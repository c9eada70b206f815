// SPDX-License-Identifier: Apache-2.0
#include "HostSettings.h"

#include "Log.h"
#include "ProcessRoot.h"

#include <QtCore/QSettings>

namespace velmora {

namespace {

std::shared_ptr<SettingsStore> store() {
    return ProcessRoot::share<SettingsStore>();
}

// Logged even while ads are removed: the value that can't be stored may be the ads-off switch
// itself.
void logComplaints(SettingsStore &store) {
    for (const QString &complaint : store.takeComplaints())
        Log::writeAlways(complaint);
}

} // namespace

QVariant HostSettings::value(const QString &key) {
    if (ProcessRoot::hasEnded())
        return {};
    const auto settings = store();
    QVariant value = settings->value(key);
    logComplaints(*settings);
    return value;
}

bool HostSettings::setValue(const QVariant &value, const QString &key) {
    if (ProcessRoot::hasEnded())
        return false;
    const auto settings = store();
    const bool isStored = settings->setValue(key, value);
    logComplaints(*settings);
    return isStored;
}

QString HostSettings::place() {
    if (ProcessRoot::hasEnded())
        return {};
    const auto settings = store();
    QString place = settings->place();
    logComplaints(*settings);
    return place;
}

std::unique_ptr<QSettings> HostSettings::open() {
    return ProcessRoot::hasEnded() ? nullptr : store()->open();
}

} // namespace velmora
