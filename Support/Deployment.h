// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace velmora {

/// Where this build of the framework finds its servers and its store. The values are build
/// options; in a developer build the environment may replace them (VELMORA_AD_SERVER_URL,
/// VELMORA_AD_SERVER_CA, VELMORA_STORE_LOOKUP_URL, VELMORA_REACHABILITY_PROBE), read once a
/// process. Main thread only.
struct Deployment {
    /// Base URL of the ad server: https, no trailing slash.
    QString acsURL;
    /// Where the ad request is posted.
    QString apiAcsURL() const { return acsURL + QStringLiteral("/api/v1/banners"); }

    /// Host of the store's pages in the links that the framework builds.
    QString storeHost;
    /// First labels of the store's current and of its classic host, for banner links.
    QString storeWebLabel;
    QString storeClassicLabel;
    /// Base URL of the store's look-up service.
    QString storeLookupURL;

    /// IPv4 address that stands for the internet; 0.0.0.0 asks for a default route.
    QString reachabilityProbe;
    /// PEM text of the authorities that the ad server's host is verified against, in place of the
    /// system's; empty for the system's. Verification is never switched off.
    QByteArray adServerAuthorities;

    static const Deployment &current();

    /// The values of the build, before any replacement.
    static Deployment builtIn();

    /// Replaces the values for this process, or goes back to the build's when empty. Takes
    /// effect for objects made afterwards.
    static void replace(std::optional<Deployment> values);
};

} // namespace velmora
