// SPDX-License-Identifier: Apache-2.0
#include "Switches.h"
#include "VideoPlayer.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/VideoHelpers.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

namespace velmora::test {

namespace {

const QUrl Clip = QUrl::fromLocalFile(QStringLiteral(VELMORA_TEST_CLIPS "/longer.mp4"));

struct Played {
    int frames = 0;
    int ends = 0;
    int failures = 0;
    VideoPlayer player{{{}, [this] { ++frames; }, [this] { ++ends; }, [this] { ++failures; }}};

    Played() {
        player.load(Clip);
        player.play();
    }
};

int s_childSignals = 0;

} // namespace

class VideoHelperTest : public FreshProcess {
protected:
    VideoHelperTest() {
        Switches::activateDebugMode();
        watchVideoHelpers();
    }
    ~VideoHelperTest() override {
        qunsetenv("VELMORA_VIDEO_HELPER");
        qunsetenv("VELMORA_TEST_HELPER");
    }

    void useHostileHelper(const char *behaviour) {
        qputenv("VELMORA_VIDEO_HELPER", VELMORA_TEST_HOSTILE_HELPER);
        qputenv("VELMORA_TEST_HELPER", behaviour);
    }
};

TEST_F(VideoHelperTest, ADecoderThatCrashesFailsItsVideoOnly) {
    auto crashing = std::make_unique<Played>();
    ASSERT_TRUE(eventually([&] { return crashing->frames > 3; }));
    ASSERT_EQ(videoHelpers().size(), 1);
    kill(videoHelpers().constFirst(), SIGSEGV);

    // The host's event loop goes on meanwhile.
    QElapsedTimer beat;
    qint64 longestGap = 0;
    beat.start();
    EXPECT_TRUE(eventually([&] {
        longestGap = std::max(longestGap, beat.restart());
        return crashing->failures > 0;
    }));
    EXPECT_LT(longestGap, 200);
    EXPECT_EQ(crashing->failures, 1);
    EXPECT_EQ(crashing->player.status(), VideoPlayer::Status::Failed);
    EXPECT_FALSE(crashing->player.frame().isNull()) << "the last picture stays";
    EXPECT_EQ(crashing->player.frame().copy().size(), QSize(960, 540));
    EXPECT_TRUE(hasLogged("the video helper crashed (signal 11)"));
    EXPECT_TRUE(eventually([] { return videoHelpers().isEmpty(); }));

    Played next;
    EXPECT_TRUE(eventually([&] { return next.frames > 3; }));
    EXPECT_EQ(next.failures, 0);
}

TEST_F(VideoHelperTest, TheHostDoesNotNoticeTheProcess) {
    struct sigaction counting {};
    struct sigaction before {};
    counting.sa_handler = [](int) { ++s_childSignals; };
    sigaction(SIGCHLD, &counting, &before);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("open"));
    // Without O_CLOEXEC.
    const int open = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT, 0600);
    ASSERT_GE(open, 0);
    {
        Played video;
        ASSERT_TRUE(eventually([&] { return video.frames > 0; }));
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
        const QDir files(QStringLiteral("/proc/%1/fd").arg(videoHelpers().value(0)));
        const auto entries = files.entryInfoList(QDir::AllEntries | QDir::System);
        EXPECT_FALSE(entries.isEmpty());
        for (const QFileInfo &entry : entries)
            EXPECT_NE(entry.symLinkTarget(), path);
    }
    EXPECT_TRUE(eventually([] { return videoHelpers().isEmpty(); }));
    EXPECT_EQ(s_childSignals, 0);
    ::close(open);
    sigaction(SIGCHLD, &before, nullptr);
}

TEST_F(VideoHelperTest, ASpareHelperIsUsedOnce) {
    VideoPlayer::warmUp();
    ASSERT_TRUE(eventually([] { return videoHelpers().size() == 1; }));
    const pid_t spare = videoHelpers().constFirst();
    VideoPlayer::warmUp();
    quietly(100);
    EXPECT_EQ(videoHelpers(), QList<pid_t>{spare});

    Played first;
    ASSERT_TRUE(eventually([&] { return first.frames > 0; }));
    EXPECT_EQ(videoHelpers(), QList<pid_t>{spare});
    Played second;
    ASSERT_TRUE(eventually([&] { return second.frames > 0; }));
    EXPECT_EQ(videoHelpers().size(), 2);

    // One that has crashed before its use is replaced.
    VideoPlayer::warmUp();
    ASSERT_TRUE(eventually([] { return videoHelpers().size() == 3; }));
    for (const pid_t helper : videoHelpers())
        kill(helper, SIGKILL);
    ASSERT_TRUE(eventually([] { return videoHelpers().isEmpty(); }));
    Played third;
    EXPECT_TRUE(eventually([&] { return third.frames > 0; }));
    EXPECT_EQ(third.failures, 0);
}

TEST_F(VideoHelperTest, WithoutAHelperTheVideoIsDecodedHere) {
    const auto plays = [](const char *reason) {
        Played video;
        EXPECT_TRUE(eventually([&] { return video.frames > 0; })) << reason;
        EXPECT_TRUE(hasLogged(reason));
        EXPECT_TRUE(videoHelpers().isEmpty());
    };
    qputenv("VELMORA_VIDEO_HELPER", "/nowhere/velmora-video-helper");
    plays("velmora-video-helper is not installed");
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("helper")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    qputenv("VELMORA_VIDEO_HELPER", QFile::encodeName(file.fileName()));
    plays("Permission denied");

    // A helper that may start another time.
    const auto fails = [](const char *reason) {
        Played video;
        EXPECT_TRUE(eventually([&] { return video.failures > 0; })) << reason;
        EXPECT_TRUE(hasLogged(reason));
    };
    qputenv("VELMORA_VIDEO_HELPER", "/bin/false");
    fails("/bin/false does not start");
    useHostileHelper("stays silent");
    fails("velmora-hostile-helper does not start");
}

TEST_F(VideoHelperTest, WhatATakenOverHelperSendsDoesNoHarm) {
    useHostileHelper("lies");
    Played video;
    EXPECT_TRUE(eventually([&] { return video.failures > 0; }));
    EXPECT_EQ(video.failures, 1);
    EXPECT_LE(video.frames, 1);
    EXPECT_GE(video.player.durationSeconds(), 0);
    EXPECT_LE(timesLogged("xxx"), 25);
    EXPECT_LE(video.ends, 1);
}

} // namespace velmora::test
