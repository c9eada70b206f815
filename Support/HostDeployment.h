// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Deployment.h"

namespace velmora {

class Bundle;

/// The deployment values in a host's Info.plist. There is no key for the trusted authorities: who
/// can write to the host's folder could otherwise read its connections to the ad server.
class HostDeployment {
public:
    /// Replaces those values for which the host's Info.plist has a usable one. What is not usable
    /// is refused with a warning in the log, with debug mode off, too, because the host's developer
    /// has to correct it. Main thread.
    static void apply(const Bundle &host, Deployment *values);
};

} // namespace velmora
