// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

namespace gallery {

class Gallery;

/// A kind of host: its name, and the function that opens its windows.
struct Host {
    const char *name;
    void (*open)(Gallery &gallery);
};

using Hosts = std::vector<Host>;

Hosts mainWindowHosts();
Hosts dialogHosts();
Hosts windowStateHosts();
Hosts pageHosts();
Hosts nativeHosts();
Hosts lookHosts();
Hosts severalWindowsHosts();
/// Only under X11.
Hosts foreignHosts();
/// Only where Qt Quick is installed.
Hosts quickHosts();

} // namespace gallery
