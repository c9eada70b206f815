// SPDX-License-Identifier: Apache-2.0
#include "VideoPlayer.h"

#include "Switches.h"
#include "VideoModule.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/Waiting.h"

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtNetwork/QLocalServer>

#include <algorithm>

namespace velmora::test {

namespace {

QString clip(const char *name) {
    return QStringLiteral(VELMORA_TEST_CLIPS "/") + QLatin1String(name);
}

QByteArray contents(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray still() {
    QImage image(64, 36, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data();
}

// A player that counts the calls of its handlers.
struct Played {
    int firstFrames = 0;
    int frames = 0;
    int ends = 0;
    int failures = 0;
    VideoPlayer player{{[this] { ++firstFrames; }, [this] { ++frames; }, [this] { ++ends; },
                        [this] { ++failures; }}};

    explicit Played(const QString &path, QSize place = {}) {
        player.setPlace(place);
        player.load(QUrl::fromLocalFile(path));
    }

    bool isOver() const { return ends > 0 || failures > 0; }
};

// The process's threads without those of GStreamer's thread pools, which stay for some time.
int busyThreads() {
    int count = 0;
    for (const QString &task :
         QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        count += !contents(QStringLiteral("/proc/self/task/%1/comm").arg(task)).startsWith("pool-");
    return count;
}

int openFiles() {
    return int(QDir(QStringLiteral("/proc/self/fd"))
                   .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                   .size());
}

// The mean difference of all colour values.
double difference(const QImage &one, const QImage &other) {
    qint64 sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width() * 4; ++x)
            sum += std::abs(one.constScanLine(y)[x] - other.constScanLine(y)[x]);
    }
    return double(sum) / (one.width() * one.height() * 4);
}

bool isModuleLoaded() {
    return contents(QStringLiteral("/proc/self/maps")).contains("velmora_video.so");
}

} // namespace

class VideoPlayerTest : public FreshProcess {
protected:
    VideoPlayerTest() { Switches::activateDebugMode(); }

    QString file(const char *name, const QByteArray &bytes) const {
        QFile made(folder.filePath(QLatin1String(name)));
        if (made.open(QIODevice::WriteOnly))
            made.write(bytes);
        return made.fileName();
    }

    QTemporaryDir folder;
};

// This test must come first, because a module that is loaded stays loaded.
TEST_F(VideoPlayerTest, WithoutHelperAndModuleAVideoFailsWithALogLine) {
    if (isModuleLoaded())
        GTEST_SKIP() << "the module is loaded already";
    const bool hadHelper = !qEnvironmentVariableIsSet("VELMORA_VIDEO_HELPER");
    qputenv("VELMORA_VIDEO_HELPER", "");
    qputenv("VELMORA_VIDEO_MODULE", QFile::encodeName(folder.filePath(QStringLiteral("none.so"))));
    Played missing(clip("short.mp4"));
    EXPECT_EQ(missing.player.status(), VideoPlayer::Status::Unknown);
    EXPECT_TRUE(eventually([&] { return missing.failures == 1; }));
    EXPECT_TRUE(hasLogged("velmora_video.so is not installed"));

    const QString broken = file("broken.so", "no library");
    qputenv("VELMORA_VIDEO_MODULE", QFile::encodeName(broken));
    Played unloadable(clip("short.mp4"));
    EXPECT_TRUE(eventually([&] { return unloadable.failures == 1; }));
    EXPECT_TRUE(hasLogged(broken));
    EXPECT_EQ(unloadable.player.status(), VideoPlayer::Status::Failed);

    // They have been installed meanwhile.
    qunsetenv("VELMORA_VIDEO_MODULE");
    if (hadHelper)
        qunsetenv("VELMORA_VIDEO_HELPER");
    Played present(clip("short.mp4"));
    EXPECT_TRUE(eventually([&] { return present.firstFrames == 1; }));
}

TEST_F(VideoPlayerTest, PlaysToItsEndOnceAndAgainFromTheStart) {
    Played video(clip("short.mp4"));
    video.player.setMuted(true);
    video.player.seekToStart();
    video.player.play();
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(eventually([&] { return video.firstFrames == 1; }));
    ASSERT_TRUE(eventually([&] { return video.isOver(); }));
    EXPECT_GT(clock.elapsed(), 1100);
    EXPECT_EQ(video.ends, 1);
    EXPECT_EQ(video.player.status(), VideoPlayer::Status::Ready);
    EXPECT_NEAR(video.player.durationSeconds(), 1.3, 0.1);
    EXPECT_EQ(video.player.frame().size(), QSize(960, 540));
    EXPECT_GT(video.frames, 15);

    // At the end, play() does nothing.
    const int frames = video.frames;
    video.player.play();
    quietly(200);
    EXPECT_EQ(video.frames, frames);
    EXPECT_FALSE(video.player.isPlaying());

    video.player.seekToStart();
    video.player.play();
    ASSERT_TRUE(eventually([&] { return video.ends == 2; }));
    EXPECT_GT(video.frames, frames + 15);
    EXPECT_EQ(video.firstFrames, 1);
    EXPECT_EQ(video.failures, 0);
}

TEST_F(VideoPlayerTest, PicturesFitIntoTheirPlaceFromTheFirstOneOn) {
    Played whole(clip("longer.mp4"));
    Played small(clip("longer.mp4"), {333, 500});
    Played turned(clip("turned.mp4"), {333, 500});
    ASSERT_TRUE(eventually(
        [&] { return whole.firstFrames > 0 && small.firstFrames > 0 && turned.firstFrames > 0; }));
    EXPECT_EQ(turned.player.frame().size(), QSize(281, 500));
    const QImage expected =
        whole.player.frame().scaled({333, 187}, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    ASSERT_EQ(small.player.frame().size(), expected.size());
    EXPECT_LT(difference(small.player.frame(), expected), 4);

    small.player.play();
    for (const auto &[place, size] : {std::pair{QSize(500, 100), QSize(177, 100)},
                                      {QSize(1, 1), QSize(1, 1)},
                                      {QSize(1200, 700), QSize(960, 540)},
                                      {QSize(2560, 1600), QSize(2560, 1440)},
                                      {QSize(640, 360), QSize(640, 360)},
                                      {QSize(), QSize(960, 540)}}) {
        small.player.setPlace(place);
        EXPECT_TRUE(eventually([&, wanted = size] {
            return small.player.frame().size() == wanted;
        })) << size.width();
    }
    EXPECT_EQ(small.failures, 0);
}

TEST_F(VideoPlayerTest, AStormOfNewPlacesLeavesAPlayingVideoSharp) {
    Played video(clip("green-hd.mp4"), {500, 400});
    video.player.play();
    ASSERT_TRUE(eventually([&] { return video.firstFrames > 0; }));
    // So many that some come while the engine is busy with a change.
    const QSize jumps[] = {{160, 120}, {2560, 1600}, {1, 1}, {321, 700}, {1900, 77}, {640, 480}};
    int step = 0;
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(eventually([&] {
        for (int i = 0; i < 100; ++i, ++step) {
            const QSize shrinking(500 - step % 400, 400 - step % 300);
            video.player.setPlace(clock.elapsed() < 700 ? shrinking
                                                        : jumps[step % std::size(jumps)]);
            QThread::usleep(200);
        }
        return clock.elapsed() > 1200 || video.isOver();
    }));
    video.player.setPlace({800, 800});
    EXPECT_TRUE(eventually([&] { return video.isOver(); }));
    EXPECT_EQ(video.failures, 0);
    EXPECT_EQ(video.player.frame().size(), QSize(800, 450));
}

TEST_F(VideoPlayerTest, ColoursDependOnNeitherTurningNorScaling) {
    const auto green = [](const char *name, QSize place) {
        Played video(clip(name), place);
        EXPECT_TRUE(eventually([&] { return video.firstFrames > 0 || video.isOver(); }));
        const QImage &frame = video.player.frame();
        return frame.isNull() ? 0 : qGreen(frame.pixel(frame.rect().center()));
    };
    const int small = green("green.mp4", {});
    EXPECT_GT(small, 240);
    EXPECT_NEAR(green("green-turned.mp4", {}), small, 2);
    EXPECT_NEAR(green("green-turned.mp4", {90, 160}), small, 2);
    // By convention, large pictures store colours in another way.
    const int large = green("green-hd.mp4", {});
    EXPECT_LT(large, 230);
    EXPECT_NEAR(green("green-hd.mp4", {320, 180}), large, 2);
}

TEST_F(VideoPlayerTest, PausesAndContinues) {
    Played video(clip("short.mp4"));
    ASSERT_TRUE(eventually([&] { return video.firstFrames == 1; }))
        << "a paused player shows the first frame";
    quietly(100);
    EXPECT_EQ(video.frames, 1);
    video.player.play();
    ASSERT_TRUE(eventually([&] { return video.frames > 8; }));
    video.player.setMuted(true);
    video.player.pause();
    quietly(100); // one more frame may already be under way
    const int frames = video.frames;
    quietly(1500);
    EXPECT_EQ(video.frames, frames);
    EXPECT_EQ(video.ends, 0);
    video.player.setMuted(false);
    video.player.play();
    EXPECT_TRUE(eventually([&] { return video.ends == 1; }));
    EXPECT_GT(video.frames, frames + 8);
    EXPECT_FALSE(hasLogged("restarted without sound"));
}

TEST_F(VideoPlayerTest, ABlockedMainThreadMissesFramesOnly) {
    Played video(clip("longer.mp4"));
    video.player.play();
    QThread::msleep(700); // before the first frame
    ASSERT_TRUE(eventually([&] { return video.frames > 2; }));
    const int frames = video.frames;
    QThread::msleep(2000);
    handleEvents();
    EXPECT_LE(video.frames, frames + 3) << "late frames are dropped";
    ASSERT_TRUE(eventually([&] { return video.isOver(); }));
    EXPECT_EQ(video.ends, 1);
    EXPECT_FALSE(hasLogged("restarted without sound"));
}

TEST_F(VideoPlayerTest, AnEndDuringABlockedMainThreadIsReportedOnce) {
    Played video(clip("short.mp4"));
    video.player.play();
    ASSERT_TRUE(eventually([&] { return video.frames > 5; }));
    QThread::msleep(1500);
    EXPECT_TRUE(eventually([&] { return video.isOver(); }));
    EXPECT_EQ(video.ends, 1);
    // seekToStart() discards an end that has not been reported yet.
    video.player.seekToStart();
    video.player.play();
    ASSERT_TRUE(eventually([&] { return video.frames > 15; }));
    QThread::msleep(1300);
    video.player.seekToStart();
    handleEvents();
    EXPECT_EQ(video.ends, 1);
    EXPECT_TRUE(eventually([&] { return video.ends == 2; }));
    EXPECT_EQ(video.failures, 0);
}

TEST_F(VideoPlayerTest, AVideoMayLackSoundOrPictures) {
    Played noSound(clip("without-sound.mp4"));
    Played noPictures(clip("without-pictures.mp4"));
    noSound.player.play();
    noPictures.player.play();
    EXPECT_TRUE(eventually([&] { return noSound.isOver() && noPictures.isOver(); }));
    EXPECT_EQ(noSound.ends, 1);
    EXPECT_GT(noSound.frames, 15);
    EXPECT_EQ(noPictures.ends, 1);
    EXPECT_EQ(noPictures.frames, 0);
    EXPECT_NEAR(noPictures.player.durationSeconds(), 1.2, 0.1);
}

TEST_F(VideoPlayerTest, AnUnplayableFileFailsOnceWithALogLine) {
    const QByteArray whole = contents(clip("index-last.mp4"));
    QByteArray strange = contents(clip("without-sound.mp4"));
    strange.replace("avc1", "zz9q");
    const struct {
        QString path;
        const char *logged;
    } cases[] = {
        {folder.filePath(QStringLiteral("none.mp4")), "no such file"},
        {folder.path(), "not a file"},
        {QStringLiteral("/dev/zero"), "not a file"},
        {file("empty.mp4", {}), "is empty"},
        {file("text.mp4", QByteArray("no video at all\n").repeated(400)),
         "text.mp4: cannot be played"},
        {file("noise.mp4", QByteArray("\x07\xf3\x91\x00\xa5", 5).repeated(4000)),
         "noise.mp4: cannot be played"},
        {file("torn.mp4", whole.left(whole.size() / 2)), "torn.mp4: cannot be played"},
        {file("list.mp4",
              "#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\nhttp://127.0.0.1:9/a.ts\n"),
         "list.mp4: cannot be played"},
        {file("still.mp4", still()), "still.mp4: cannot be played"},
        {clip("wide.webm"), "too large"},
        {clip("large.webm"), "too large"},
        {file("strange.mp4", strange), "missing; try the package"},
    };
    for (const auto &[path, logged] : cases) {
        SCOPED_TRACE(path.toStdString());
        Played video(path);
        video.player.play();
        EXPECT_EQ(video.failures, 0) << "handlers must not run inside a call";
        EXPECT_TRUE(eventually([&] { return video.isOver(); }));
        EXPECT_EQ(video.player.status(), VideoPlayer::Status::Failed);
        EXPECT_TRUE(hasLogged(logged));
        EXPECT_FALSE(video.player.isPlaying());
        video.player.seekToStart();
        video.player.play();
        handleEvents();
        EXPECT_EQ(video.failures, 1);
        EXPECT_EQ(video.ends, 0);
    }
    Played video(folder.path());
    video.player.load(QUrl(QStringLiteral("https://127.0.0.1:9/a.mp4")));
    EXPECT_TRUE(eventually([&] { return video.failures == 1; }));
    EXPECT_TRUE(hasLogged("not a local file"));
    video.player.load(QUrl());
    video.player.load(QUrl::fromLocalFile(clip("short.mp4")));
    EXPECT_TRUE(eventually([&] { return video.firstFrames == 1; }));
    EXPECT_EQ(video.failures, 1) << "the earlier failure must not be reported again";
}

TEST_F(VideoPlayerTest, AnEngineThatMakesNoProgressIsRestartedTwiceAndThenFails) {
    Played video(clip("silence.webm"));
    video.player.play();
    EXPECT_TRUE(eventually([&] { return video.isOver(); }, 20'000));
    EXPECT_EQ(video.failures, 1);
    EXPECT_EQ(video.firstFrames, 1);
    EXPECT_EQ(timesLogged("restarted without sound"), 2);
}

TEST_F(VideoPlayerTest, AHangingSoundServerDoesNotDelayTheVideo) {
    QLocalServer server;
    ASSERT_TRUE(server.listen(folder.filePath(QStringLiteral("sound"))));
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(server.fullServerName()));
    Played video(clip("short.mp4"));
    video.player.play();
    EXPECT_TRUE(eventually([&] { return video.isOver(); }));
    EXPECT_EQ(video.ends, 1);
    EXPECT_FALSE(hasLogged("restarted without sound"));
    qunsetenv("PULSE_SERVER");
}

TEST_F(VideoPlayerTest, AHandlerMayDestroyThePlayer) {
    for (const int which : {0, 1, 2, 3}) {
        std::unique_ptr<VideoPlayer> player;
        bool isGone = false;
        const auto destroy = [&] {
            player.reset();
            isGone = true;
        };
        VideoPlayer::Handlers handlers;
        (which == 0   ? handlers.firstFrame
         : which == 1 ? handlers.frameAvailable
         : which == 2 ? handlers.ended
                      : handlers.failed) = destroy;
        player = std::make_unique<VideoPlayer>(handlers);
        player->load(QUrl::fromLocalFile(which == 3 ? folder.path() : clip("short.mp4")));
        player->play();
        EXPECT_TRUE(eventually([&] { return isGone; })) << which;
    }
}

TEST_F(VideoPlayerTest, DestroyingItInAnyStateIsFastAndLeaksNoThreadsOrFiles) {
    {
        Played warm(clip("longer.mp4"));
        warm.player.play();
        ASSERT_TRUE(eventually([&] { return warm.frames > 2; }));
    }
    // By now GStreamer has started the threads that it keeps until the process ends.
    quietly(500);
    const int threads = busyThreads();
    const int files = openFiles();
    std::vector<qint64> times;
    const auto destroyed = [&](const std::function<bool(Played &)> &reach) {
        auto video = std::make_unique<Played>(clip("longer.mp4"));
        EXPECT_TRUE(reach(*video));
        QElapsedTimer clock;
        clock.start();
        video.reset();
        times.push_back(clock.nsecsElapsed() / 1000);
    };
    const std::function<bool(Played &)> moments[] = {
        [](Played &) { return true; },
        [](Played &video) {
            return eventually([&] { return video.player.status() == VideoPlayer::Status::Ready; });
        },
        [](Played &video) {
            video.player.play();
            return eventually([&] { return video.frames > 0; });
        },
        [](Played &video) {
            video.player.play();
            const bool isPlaying = eventually([&] { return video.frames > 2; });
            video.player.seekToStart();
            return isPlaying;
        }};
    for (int i = 0; i < 80; ++i)
        destroyed([i](Played &video) {
            video.player.play();
            QThread::msleep(static_cast<unsigned long>(i % 17));
            return true;
        });
    for (int i = 0; i < 40; ++i)
        destroyed(moments[i % std::size(moments)]);
    // On a busy machine the main thread may lose its processor now and then.
    std::sort(times.begin(), times.end());
    EXPECT_LT(times.at(times.size() * 9 / 10), 10'000);
    EXPECT_LT(times.back(), 100'000);
    // GStreamer ends its idle threads after 15 s.
    EXPECT_TRUE(
        eventually([&] { return busyThreads() <= threads && openFiles() <= files; }, 30'000))
        << busyThreads() << " threads after " << threads << ", " << openFiles() << " files after "
        << files;
}

} // namespace velmora::test
