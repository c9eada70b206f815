// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/GalleryAds.h"

#include "tests/gallery/PictureCheck.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/TestGif.h"

#include <QtCore/QFile>

#include <gtest/gtest.h>

namespace velmora::test {

namespace {

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
        "image":"/media/still.gif","priority":1,
        "market_url":"https://apps.velmora-store.example/app/id2"}]})");
    campaign.setMedia(QStringLiteral("/media/banner.gif"),
                      stillGif(PictureCheck::BannerLeft, PictureCheck::BannerRight, {728, 90}));
    campaign.setMedia(QStringLiteral("/media/film.mp4"), video());
    campaign.setMedia(QStringLiteral("/media/still.gif"),
                      stillGif(PictureCheck::Still, PictureCheck::Still, {1280, 720}));
    EXPECT_FALSE(m_server.start().isEmpty()) << qPrintable(m_server.errorString());
}

void GalleryAds::addTo(QProcessEnvironment &environment) const {
    const QMap<QString, QString> variables = variablesFor(m_server, m_folder.path());
    for (auto it = variables.begin(); it != variables.end(); ++it)
        environment.insert(it.key(), it.value());
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
        environment.insert(QLatin1String(variable), m_folder.filePath(QLatin1String(variable)));
}

} // namespace velmora::test
