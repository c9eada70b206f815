// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/VideoTrials.h"

#include "VideoPlayer.h"
#include "VideoView.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QThread>
#include <QtWidgets/QApplication>

#include <functional>

namespace velmora::bench {

namespace {

constexpr double TimeoutMs = 30'000;

double milliseconds(const QElapsedTimer &clock) {
    return double(clock.nsecsElapsed()) / 1e6;
}

void waitFor(const std::function<bool()> &condition) {
    QElapsedTimer clock;
    clock.start();
    while (!condition() && milliseconds(clock) < TimeoutMs)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
}

class WatchedView : public VideoView {
public:
    bool hasPaintedFrame = false;

protected:
    void paintEvent(QPaintEvent *event) override {
        VideoView::paintEvent(event);
        hasPaintedFrame |= !frame().isNull();
    }
};

struct Playback {
    VideoView *view = nullptr;
    int frames = 0;
    int framesAfterStall = 0;
    int ends = 0;
    int failures = 0;
    double endedMs = 0;
    QElapsedTimer clock;
    VideoPlayer player{{{},
                        [this] {
                            ++frames;
                            ++framesAfterStall;
                            if (view)
                                view->showFrame(player.frame());
                        },
                        [this] {
                            ++ends;
                            endedMs = milliseconds(clock);
                        },
                        [this] { ++failures; }}};

    explicit Playback(VideoView *shownIn = nullptr) : view(shownIn) {
        clock.start();
        player.load(QUrl::fromLocalFile(QStringLiteral(VELMORA_SAMPLE_VIDEO)));
        player.play();
    }

    bool isOver() const { return ends > 0 || failures > 0; }
};

} // namespace

std::vector<VideoTrials::Start> VideoTrials::starts(int count, bool isPrepared) {
    std::vector<Start> starts;
    for (int i = 0; i < count; ++i) {
        WatchedView view;
        view.setFixedSize(960, 540);
        view.show();
        if (isPrepared)
            VideoPlayer::warmUp();
        QElapsedTimer shown;
        shown.start();
        waitFor([&] { return shown.hasExpired(600); });
        Start start;
        auto playback = std::make_unique<Playback>(&view);
        waitFor([&] { return view.hasPaintedFrame || playback->failures; });
        start.firstPaintMs = milliseconds(playback->clock);
        waitFor([&] { return playback->frames > 15 || playback->isOver(); });
        if (playback->isOver())
            qFatal("the clip does not play");
        QElapsedTimer clock;
        clock.start();
        playback.reset();
        start.destroyMs = milliseconds(clock);
        starts.push_back(start);
    }
    return starts;
}

void VideoTrials::doWithoutHelper() {
    qputenv("VELMORA_VIDEO_HELPER", "");
}

VideoTrials::Stalls VideoTrials::stalls(int atOnce) {
    std::vector<std::unique_ptr<Playback>> playbacks;
    for (int i = 0; i < atOnce; ++i)
        playbacks.push_back(std::make_unique<Playback>());
    for (const auto &playback : playbacks)
        waitFor([&] { return playback->frames > 20 || playback->isOver(); });
    QThread::sleep(2);
    for (const auto &playback : playbacks)
        playback->framesAfterStall = 0;
    for (const auto &playback : playbacks)
        waitFor([&] { return playback->isOver(); });
    Stalls stalls{atOnce, 0};
    for (const auto &playback : playbacks) {
        const double late = playback->endedMs - playback->player.durationSeconds() * 1000;
        stalls.good += playback->ends == 1 && playback->failures == 0 &&
                       playback->framesAfterStall > 30 && late > -500 && late < 2000;
    }
    return stalls;
}

} // namespace velmora::bench
