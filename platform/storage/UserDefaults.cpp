// SPDX-License-Identifier: Apache-2.0
#include <Velmora/UserDefaults.h>

#include "HostSettings.h"
#include "ProcessRoot.h"

namespace velmora {

UserDefaults &UserDefaults::standard() {
    return ProcessRoot::get<UserDefaults>();
}

QVariant UserDefaults::object(const QString &key) const {
    return HostSettings::value(key);
}

void UserDefaults::setObject(const QVariant &value, const QString &key) {
    HostSettings::setValue(value, key);
}

void UserDefaults::removeObject(const QString &key) {
    HostSettings::setValue({}, key);
}

} // namespace velmora
