// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/Desktop.h"

#include "tests/gallery/SwayDesktop.h"
#include "tests/gallery/X11Desktop.h"

namespace velmora::test {

namespace {

Desktop *s_current = nullptr;

} // namespace

std::unique_ptr<Desktop> Desktop::start(const QString &name) {
    std::unique_ptr<Desktop> desktop;
    if (name == QLatin1String("sway"))
        desktop = std::make_unique<SwayDesktop>();
    else
        desktop = std::make_unique<X11Desktop>(name);
    s_current = desktop.get();
    return desktop;
}

Desktop &Desktop::current() {
    return *s_current;
}

} // namespace velmora::test
