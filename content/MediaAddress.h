// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <QtCore/QString>
#include <QtCore/QUrl>

namespace velmora {

/// The address of an ad's media file on the ad server, and the name under which it is cached. The
/// path in the server's reply is untrusted: it must stay on the ad server and end in a file name
/// that cannot lead out of the caches folder.
struct MediaAddress {
    /// Empty when the path is absent or was refused.
    QUrl remote;
    /// Why the path was refused; empty when it was accepted or is absent.
    QString refusal;

    /// @param server the ad server's base URL, without a trailing slash
    /// @param path   the value in the ad object: a path that begins with "/"
    static MediaAddress from(const QString &server, const QJsonValue &path);

    /// The address under a key of an ad object, on the ad server of this deployment.
    static MediaAddress ofAd(const QJsonObject &ad, const QString &key);

    /// The name in the caches folder: the last path component of the address, percent-decoded;
    /// "(null)" for an empty address.
    static QString cachedName(const QUrl &remote);
};

} // namespace velmora
