// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/GalleryAds.h"

#include "tests/gallery/PictureCheck.h"
#include "tests/support/TestGif.h"

#include <QtCore/QBuffer>
#include <QtCore/QFile>

#include <gtest/gtest.h>

namespace velmora::test {

namespace {

QByteArray still() {
    QImage picture(1280, 720, QImage::Format_RGB32);
    picture.fill(PictureCheck::Still);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return bytes;
}

QByteArray video() {
    QFile file(QStringLiteral(VELMORA_TEST_CLIPS "/longer.mp4"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace

GalleryAds::GalleryAds() {
    adserver::Campaign &campaign = m_server.campaign();
    campaign.setReply(R"({"standard":[{"name":"Colours","image_728x90":"/media/banner.gif",
        "priority":1,"market_url":"https://apps.velmora-store.example/app/id1"}],
        "video":[{"VLMAppName":"Film","video_file_landscape":"/media/film.mp4",
        "image":"/media/still.png","priority":1,
        "market_url":"https://apps.velmora-store.example/app/id2"}]})");
    campaign.setMedia(QStringLiteral("/media/banner.gif"),
                      stillGif(PictureCheck::BannerLeft, PictureCheck::BannerRight, {728, 90}));
    campaign.setMedia(QStringLiteral("/media/film.mp4"), video());
    campaign.setMedia(QStringLiteral("/media/still.png"), still());
    EXPECT_FALSE(m_server.start().isEmpty()) << qPrintable(m_server.errorString());
    QFile authority(m_folder.filePath(QStringLiteral("ca.pem")));
    EXPECT_TRUE(authority.open(QIODevice::WriteOnly));
    authority.write(m_server.caPem());
}

void GalleryAds::addTo(QProcessEnvironment &environment) const {
    environment.insert(QStringLiteral("VELMORA_AD_SERVER_URL"), m_server.baseUrl());
    environment.insert(QStringLiteral("VELMORA_AD_SERVER_CA"),
                       m_folder.filePath(QStringLiteral("ca.pem")));
    environment.insert(QStringLiteral("VELMORA_STORE_LOOKUP_URL"), m_server.baseUrl());
    environment.insert(QStringLiteral("VELMORA_REACHABILITY_PROBE"), QStringLiteral("127.0.0.1"));
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
        environment.insert(QLatin1String(variable), m_folder.filePath(QLatin1String(variable)));
}

} // namespace velmora::test
