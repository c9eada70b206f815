// SPDX-License-Identifier: Apache-2.0
#include "HostDeployment.h"

#include "Log.h"
#include "ServerName.h"

#include <Velmora/Bundle.h>

#include <QtCore/QUrl>

#include <optional>

namespace velmora {

namespace {

// What a check returns: the value in the form that is used, or nothing.
using Checked = std::optional<QString>;

Checked checkedBaseUrl(const QString &text) {
    QUrl url(text, QUrl::StrictMode);
    const QString host = url.host(QUrl::FullyEncoded);
    if (!url.isValid() || url.scheme() != u"https" || !url.userInfo().isEmpty() || url.hasQuery() ||
        url.hasFragment() || url.port(443) == 0 ||
        !(ServerName::isDnsName(host) || ServerName::isIPv4Address(host)))
        return {};
    // Paths that begin with a slash are appended to it.
    QString path = url.path(QUrl::FullyEncoded);
    while (path.endsWith(u'/'))
        path.chop(1);
    url.setPath(path);
    return url.toString(QUrl::FullyEncoded);
}

Checked checkedHost(const QString &text) {
    return ServerName::isDnsName(text) ? Checked(text) : Checked();
}

Checked checkedLabel(const QString &text) {
    return ServerName::isDnsLabel(text) ? Checked(text) : Checked();
}

Checked checkedAddress(const QString &text) {
    return ServerName::isIPv4Address(text) ? Checked(text) : Checked();
}

struct Key {
    const char *name;
    QString Deployment::*value;
    Checked (*check)(const QString &text);
    const char *usable;
};

constexpr auto BaseUrl = "an https URL with a host, without credentials, query and fragment";
constexpr auto Label = "one label of a DNS name";

constexpr Key keys[] = {
    {"VelmoraAdServerURL", &Deployment::acsURL, &checkedBaseUrl, BaseUrl},
    {"VelmoraStoreHost", &Deployment::storeHost, &checkedHost, "a DNS name"},
    {"VelmoraStoreWebLabel", &Deployment::storeWebLabel, &checkedLabel, Label},
    {"VelmoraStoreClassicLabel", &Deployment::storeClassicLabel, &checkedLabel, Label},
    {"VelmoraStoreLookupURL", &Deployment::storeLookupURL, &checkedBaseUrl, BaseUrl},
    {"VelmoraReachabilityProbe", &Deployment::reachabilityProbe, &checkedAddress,
     "an IPv4 address"},
};

} // namespace

void HostDeployment::apply(const Bundle &host, Deployment *values) {
    for (const Key &key : keys) {
        const QVariant value = host.objectForInfoDictionaryKey(QLatin1String(key.name));
        if (!value.isValid())
            continue;
        const bool isText = value.typeId() == QMetaType::QString;
        const Checked checked = isText ? key.check(value.toString()) : Checked();
        if (checked)
            values->*key.value = *checked;
        else // without the value, which may contain a password
            qCWarning(velmoraLog, "%s in the host's Info.plist is not %s; \"%s\" is used", key.name,
                      key.usable, qPrintable(values->*key.value));
    }
}

} // namespace velmora
