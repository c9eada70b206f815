// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace velmora {

/// The addresses of the ad server, the store and the reachability probe. The values are build
/// options; those in the host's Info.plist take their place (HostDeployment). In a build with
/// VELMORA_DEVELOPER_BUILD the environment variables VELMORA_AD_SERVER_URL, VELMORA_AD_SERVER_CA,
/// VELMORA_STORE_LOOKUP_URL and VELMORA_REACHABILITY_PROBE go before both. Main thread only, but
/// current() may be called on any thread after the main thread's first call of it.
struct Deployment {
    /// Base URL of the ad server: https, no trailing slash.
    QString acsURL;
    /// The address that the ad request is posted to.
    QString apiAcsURL() const { return acsURL + QStringLiteral("/api/v1/banners"); }

    /// Host name in the store links of the house banners.
    QString storeHost;
    /// First labels of the store's web host and of its classic host, for StoreLink::bannerLink().
    QString storeWebLabel;
    QString storeClassicLabel;
    /// Base URL of the store's look-up service.
    QString storeLookupURL;

    /// IPv4 address that stands for the internet; 0.0.0.0 asks for a default route.
    QString reachabilityProbe;
    /// Certificates (PEM) of the only authorities that are trusted for the ad server's host. Empty
    /// for the system's authorities. The certificate is verified in either case.
    QByteArray adServerAuthorities;

    /// The values in use. They are read at the first call, and once more at the main thread's first
    /// call with an application object, without which the host's Info.plist is not found. Any other
    /// call only returns the reference, which stays valid until the process ends.
    static const Deployment &current();

    /// The build options alone.
    static Deployment builtIn();

    /// For tests: replaces the values in use; std::nullopt restores those of build, Info.plist and
    /// environment. Objects that exist already may keep the values that they have read.
    static void replace(std::optional<Deployment> values);
};

} // namespace velmora
