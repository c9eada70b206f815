// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

namespace velmora::bench {

/// Ads as an ad server sends them. All banners have the same picture.
class SampleAds {
public:
    /// The path of the banners' picture on the ad server.
    static constexpr char Picture[] = "/small.gif";

    static QJsonObject banner(int number);
    static QJsonArray banners(int count);
    /// The ad server's reply: so many banners, and no video.
    static QByteArray reply(int count);
};

} // namespace velmora::bench
