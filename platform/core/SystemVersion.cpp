// SPDX-License-Identifier: Apache-2.0
#include "SystemVersion.h"

#include <QtCore/QSysInfo>
#include <QtCore/QVersionNumber>

namespace velmora {

namespace {
// Set by tests. Not in ProcessRoot, so that it stays when a test drops the process state.
std::optional<SystemVersion> s_replacement;
} // namespace

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
