// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/VideoSubject.h"

#include "VideoPlayer.h"
#include "VideoView.h"
#include "benchmarks/VideoTrials.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QApplication>

#ifdef VELMORA_BENCH_MULTIMEDIA
#include <QtMultimedia/QAudioOutput>
#include <QtMultimedia/QMediaPlayer>
#include <QtMultimedia/QVideoSink>
#include <QtMultimediaWidgets/QVideoWidget>
#endif

#include <cstdio>

namespace velmora::bench {

namespace {

// The size of the clip, so that frames are not scaled.
constexpr QSize WindowSize(960, 540);

void playing() {
    std::puts("PLAYING");
    std::fflush(stdout);
}

int runPlayer() {
    VideoView view;
    view.setFixedSize(WindowSize);
    view.show();
    std::unique_ptr<VideoPlayer> player;
    VideoPlayer::Handlers handlers;
    handlers.firstFrame = playing;
    handlers.frameAvailable = [&] { view.showFrame(player->frame()); };
    handlers.failed = [] { qFatal("the clip does not play"); };
    player = std::make_unique<VideoPlayer>(handlers);
    player->load(QUrl::fromLocalFile(QStringLiteral(VELMORA_SAMPLE_VIDEO)));
    player->play();
    return QApplication::exec();
}

#ifdef VELMORA_BENCH_MULTIMEDIA
int runWidget() {
    QVideoWidget widget;
    widget.setFixedSize(WindowSize);
    widget.show();
    QAudioOutput sound;
    QMediaPlayer player;
    player.setAudioOutput(&sound);
    player.setVideoOutput(&widget);
    const auto *sink = widget.videoSink();
    QObject::connect(sink, &QVideoSink::videoFrameChanged, &widget, playing,
                     Qt::SingleShotConnection);
    player.setSource(QUrl::fromLocalFile(QStringLiteral(VELMORA_SAMPLE_VIDEO)));
    player.play();
    return QApplication::exec();
}
#endif

} // namespace

QStringList VideoSubject::names() {
    return {QStringLiteral("player"), QStringLiteral("in process"),
#ifdef VELMORA_BENCH_MULTIMEDIA
            QStringLiteral("widget"),
#endif
            QStringLiteral("decoding")};
}

QStringList VideoSubject::command(const QString &name) {
    if (name != QLatin1String("decoding"))
        return {QCoreApplication::applicationFilePath(), QStringLiteral("--subject"), name};
    return QStringLiteral("gst-launch-1.0 filesrc location=%1 ! decodebin name=all "
                          "all. ! queue ! fakesink sync=true all. ! queue ! fakesink sync=true")
        .arg(QStringLiteral(VELMORA_SAMPLE_VIDEO))
        .split(QLatin1Char(' '));
}

int VideoSubject::run(const QString &name, int argc, char **argv) {
    const QApplication application(argc, argv);
#ifdef VELMORA_BENCH_MULTIMEDIA
    if (name == QLatin1String("widget"))
        return runWidget();
#endif
    if (name == QLatin1String("in process"))
        VideoTrials::doWithoutHelper();
    return runPlayer();
}

} // namespace velmora::bench
