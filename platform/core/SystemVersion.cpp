// SPDX-License-Identifier: Apache-2.0
#include "SystemVersion.h"

#include <QtCore/QSysInfo>
#include <QtCore/QVersionNumber>

namespace velmora {

namespace {
std::optional<SystemVersion> s_replacement;
}

SystemVersion SystemVersion::current() {
    if (s_replacement)
        return *s_replacement;
    const auto number = QVersionNumber::fromString(QSysInfo::productVersion());
    return {number.majorVersion(), number.minorVersion()};
}

void SystemVersion::setCurrent(std::optional<SystemVersion> version) {
    s_replacement = version;
}

} // namespace velmora
