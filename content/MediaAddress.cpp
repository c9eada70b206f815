// SPDX-License-Identifier: Apache-2.0
#include "MediaAddress.h"

#include "CachesFolder.h"
#include "Deployment.h"

#include <algorithm>

namespace velmora {

namespace {

QString refusalOfName(const QString &name) {
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        return QStringLiteral("has no file name");
    // Some file systems ignore case.
    if (name.compare(CachesFolder::TableName, Qt::CaseInsensitive) == 0)
        return QStringLiteral("has the ad table's file name");
    const QList<uint> characters = name.toUcs4();
    const bool plain = std::all_of(characters.begin(), characters.end(), [](uint c) {
        return QChar::isPrint(c) && c != '/' && c != '\\' && c != ':';
    });
    return plain ? QString() : QStringLiteral("has a file name with forbidden characters");
}

} // namespace

MediaAddress MediaAddress::from(const QString &server, const QJsonValue &path) {
    MediaAddress address;
    if (path.isUndefined() || path.isNull())
        return address;
    const QString text = path.toString();
    if (!text.startsWith(QLatin1Char('/'))) {
        address.refusal = QStringLiteral("is not a path that begins with /");
        return address;
    }
    const QUrl base(server);
    const QUrl remote(server + text);
    if (!remote.isValid() || remote.scheme() != base.scheme() ||
        remote.authority() != base.authority()) {
        address.refusal = QStringLiteral("leaves the ad server");
        return address;
    }
    // Looked for before decoding: afterwards an encoded slash is like one between folders.
    const QString encodedName = remote.path(QUrl::FullyEncoded).section(QLatin1Char('/'), -1);
    address.refusal = encodedName.contains(QLatin1String("%2F"), Qt::CaseInsensitive)
                          ? QStringLiteral("has a file name with forbidden characters")
                          : refusalOfName(cachedName(remote));
    if (address.refusal.isEmpty())
        address.remote = remote;
    return address;
}

MediaAddress MediaAddress::ofAd(const QJsonObject &ad, const QString &key) {
    return from(Deployment::current().acsURL, ad.value(key));
}

QString MediaAddress::cachedName(const QUrl &remote) {
    if (remote.isEmpty())
        return QStringLiteral("(null)");
    return remote.path(QUrl::FullyDecoded).section(QLatin1Char('/'), -1);
}

} // namespace velmora
