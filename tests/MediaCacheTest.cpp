// SPDX-License-Identifier: Apache-2.0
#include "MediaCache.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QImageWriter>

namespace velmora::test {

using adserver::Fault;

class MediaCacheTest : public LocalAdServer {
protected:
    /// Asks for a file and waits for the answer.
    MediaCache::Result provide(const QString &path, MediaKind kind = MediaKind::Picture) {
        std::optional<MediaCache::Result> provided;
        MediaCache::provide(QUrl(baseUrl + path), kind,
                            [&](const MediaCache::Result &result) { provided = result; });
        EXPECT_TRUE(eventually([&] { return provided.has_value(); }));
        return provided.value_or(MediaCache::Result());
    }

    static QStringList cached() { return QDir(cachesFolder()).entryList(QDir::Files); }
};

TEST_F(MediaCacheTest, ADeletedCachesFolderIsCreatedAgain) {
    const QString path = QStringLiteral("/media/one.gif");
    const QUrl local = QUrl::fromLocalFile(cachesFolder() + QStringLiteral("/one.gif"));
    server.campaign().setMedia(path, gif({Qt::red}));
    for (int download = 1; download <= 2; ++download) {
        EXPECT_EQ(provide(path).file, local);
        EXPECT_EQ(cached(), QStringList{QStringLiteral("one.gif")});
        EXPECT_EQ(server.log().count(path), download);
        waitForDisk();
        ASSERT_TRUE(QDir(cachesFolder()).removeRecursively());
    }

    // The folder is deleted while the file is being downloaded.
    server.faults().set(path, Fault::hang());
    std::optional<QUrl> provided;
    MediaCache::provide(QUrl(baseUrl + path), MediaKind::Picture,
                        [&](const MediaCache::Result &result) { provided = result.file; });
    ASSERT_TRUE(eventually([&] { return server.log().count(path) == 3; }));
    QDir(cachesFolder()).removeRecursively();
    server.faults().clear();
    EXPECT_TRUE(eventually([&] { return provided == local; }));
}

TEST_F(MediaCacheTest, OnlyAUsableFileIsKept) {
    const QByteArray film = FilmHead;
    const QByteArray page = "<html>busy</html>";
    const auto jpeg = [](int moreScans) {
        QBuffer buffer;
        QImageWriter writer(&buffer, "jpeg");
        writer.setProgressiveScanWrite(true);
        EXPECT_TRUE(writer.write(QImage(8, 8, QImage::Format_RGB32)));
        const QByteArray scan = QByteArray::fromHex("ffda0008010100013f00");
        return buffer.data().chopped(2) + scan.repeated(moreScans) + QByteArray::fromHex("ffd9");
    };
    const struct {
        QByteArray bytes;
        MediaKind kind;
        bool isKept;
    } cases[] = {
        {gif({Qt::red, Qt::blue}), MediaKind::Picture, true},
        {film, MediaKind::Film, true},
        {jpeg(10), MediaKind::Picture, true},
        {jpeg(101), MediaKind::Picture, false},
        {page, MediaKind::Picture, false},
        {page, MediaKind::Film, false},
        {film, MediaKind::Picture, false},
        {gif({Qt::red}), MediaKind::Film, false},
        {gif({Qt::red, Qt::blue}).left(60), MediaKind::Picture, false},
        {gif({Qt::red, Qt::blue}, {2000, 1001}), MediaKind::Picture, false}, // too many pixels
        {gif({Qt::red}, {5000, 5000}), MediaKind::Picture, false},
    };
    int number = 0;
    for (const auto &[bytes, kind, isKept] : cases) {
        const QString path = QStringLiteral("/media/%1").arg(++number);
        server.campaign().setMedia(path, bytes);
        const MediaCache::Result result = provide(path, kind);
        EXPECT_EQ(!result.file.isEmpty(), isKept) << number;
        EXPECT_EQ(result.isHopeless, !isKept) << number;
    }
    EXPECT_EQ(cached(),
              (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
}

TEST_F(MediaCacheTest, AnUnusableFileOfAnEarlierVersionIsReplaced) {
    const QString path = QStringLiteral("/media/one.gif");
    server.campaign().setMedia(path, gif({Qt::red}));
    putInCaches(QStringLiteral("one.gif"), "<html>busy</html>");
    EXPECT_FALSE(provide(path).file.isEmpty());
    EXPECT_FALSE(provide(path).file.isEmpty());
    EXPECT_EQ(server.log().count(path), 1);
}

TEST_F(MediaCacheTest, WithoutAPlaceForTheFileTryingAgainIsHopeless) {
    const QString path = QStringLiteral("/media/one.gif");
    server.campaign().setMedia(path, gif({Qt::red}));
    server.faults().set(path, Fault::reset());
    EXPECT_FALSE(provide(path).isHopeless);
    server.faults().clear();
    const QString place = cachesFolder() + QStringLiteral("/one.gif");
    ASSERT_TRUE(QDir().mkpath(place));
    EXPECT_TRUE(provide(path).isHopeless);
    ASSERT_TRUE(QDir(place).removeRecursively());
    ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere"), place));
    EXPECT_TRUE(provide(path).isHopeless);
    ASSERT_TRUE(QDir(cachesFolder()).removeRecursively());
    QFile file(cachesFolder());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(provide(path).isHopeless);
    file.remove();
}

} // namespace velmora::test
