// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/micro/SampleAds.h"

#include "AdKeys.h"

#include <QtCore/QJsonDocument>

namespace velmora::bench {

QJsonObject SampleAds::banner(int number) {
    return {{kBannerId, number},
            {kBannerName, QStringLiteral("Application number %1").arg(number)},
            {kBannerPriority, 1 + number % 7},
            {kBannerUpdated, QStringLiteral("2024-05-06T07:08:09Z")},
            {kBannerImgURL, QLatin1String(Picture)},
            {kBannerURL, QStringLiteral("https://apps.example/app/id%1").arg(number)}};
}

QJsonArray SampleAds::banners(int count) {
    QJsonArray ads;
    for (int i = 0; i < count; ++i)
        ads.append(banner(i));
    return ads;
}

QByteArray SampleAds::reply(int count) {
    return QJsonDocument(QJsonObject{{kMainBannerKey, banners(count)}})
        .toJson(QJsonDocument::Compact);
}

} // namespace velmora::bench
