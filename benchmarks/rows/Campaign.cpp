// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/Campaign.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QtEndian>

namespace velmora::bench {

namespace {

QByteArray contents(const char *path) {
    QFile file(QString::fromUtf8(path));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s is missing", path);
    return file.readAll();
}

} // namespace

void Campaign::serve(BenchServer &bench, const QByteArray &banner, const QByteArray &film) {
    adserver::Campaign &campaign = bench.server().campaign();
    campaign.setMedia(QStringLiteral("/banner.gif"), banner);
    campaign.setMedia(QStringLiteral("/film.mp4"), film);
    const QJsonObject bannerAd{
        {QStringLiteral("name"), QStringLiteral("sample")},
        {QStringLiteral("priority"), 1},
        {QStringLiteral("image_728x90"), QStringLiteral("/banner.gif")},
        {QStringLiteral("market_url"), QStringLiteral("https://apps.example/app/id1")}};
    const QJsonObject videoAd{
        {QStringLiteral("VLMAppName"), QStringLiteral("sample")},
        {QStringLiteral("priority"), 1},
        {QStringLiteral("video_file_landscape"), QStringLiteral("/film.mp4")},
        {QStringLiteral("image"), QStringLiteral("/banner.gif")},
        {QStringLiteral("market_url"), QStringLiteral("https://apps.example/app/id1")}};
    campaign.setReply(QJsonDocument(QJsonObject{{QStringLiteral("standard"), QJsonArray{bannerAd}},
                                                {QStringLiteral("video"), QJsonArray{videoAd}}})
                          .toJson());
}

QByteArray Campaign::sampleBanner() {
    return contents(VELMORA_SAMPLE_BANNER);
}

QByteArray Campaign::sampleFilm() {
    return contents(VELMORA_SAMPLE_VIDEO);
}

QByteArray Campaign::withSize(const QByteArray &film, qsizetype bytes) {
    QByteArray box(std::max<qsizetype>(8, bytes - film.size()), '\0');
    qToBigEndian(quint32(box.size()), box.data());
    box.replace(4, 4, "free");
    return film + box;
}

} // namespace velmora::bench
