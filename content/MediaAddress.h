// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonValue>
#include <QtCore/QString>
#include <QtCore/QUrl>

namespace velmora {

/// Where an ad's media is on the ad server, and under which name it is cached. The path comes
/// from the server's reply and is trusted with nothing: it must stay on the ad server and end
/// in a plain file name.
struct MediaAddress {
    /// Empty when there is no media: the field is absent or was refused.
    QUrl remote;
    /// Why the path was refused; empty when it was accepted or is absent.
    QString refusal;

    /// @param server the ad server's base URL, without a trailing slash
    /// @param path   the ad object's value: a path that begins with "/"
    static MediaAddress from(const QString &server, const QJsonValue &path);

    /// Name in the caches folder of what is at an address: the address's last path component,
    /// decoded; "(null)" when there is no address.
    static QString cachedName(const QUrl &remote);
};

} // namespace velmora
