// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/VideoSubject.h"

#include "VideoPlayer.h"
#include "VideoView.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#ifdef VELMORA_BENCH_MULTIMEDIA
#include <QtMultimedia/QAudioOutput>
#include <QtMultimedia/QMediaPlayer>
#include <QtMultimedia/QVideoSink>
#include <QtMultimediaWidgets/QVideoWidget>
#endif

#include <algorithm>
#include <cstdio>

namespace velmora::bench {

namespace {

constexpr int StartPauseMs = 600;
constexpr int Starts = 6;

double milliseconds(const QElapsedTimer &clock) {
    return double(clock.nsecsElapsed()) / 1e6;
}

void print(const QString &line) {
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

/// An application that measures how long the event loop is blocked.
class WatchedApplication : public QApplication {
public:
    using QApplication::QApplication;

    double longestMs = 0;

    bool notify(QObject *receiver, QEvent *event) override {
        if (m_depth++ == 0)
            m_clock.start();
        const bool result = QApplication::notify(receiver, event);
        if (--m_depth == 0)
            longestMs = std::max(longestMs, milliseconds(m_clock));
        return result;
    }

private:
    QElapsedTimer m_clock;
    int m_depth = 0;
};

class WatchedView : public VideoView {
public:
    /// The number of different frames.
    int painted = 0;
    std::function<void()> firstPainted;

protected:
    void paintEvent(QPaintEvent *event) override {
        VideoView::paintEvent(event);
        if (frame().isNull() ||
            std::exchange(m_lastPainted, frame().cacheKey()) == frame().cacheKey())
            return;
        if (painted++ == 0 && firstPainted)
            firstPainted();
    }

private:
    qint64 m_lastPainted = 0;
};

void play(VideoPlayer &player, const VideoView &view, const QString &file) {
    player.setPlace(view.pixelSize());
    player.load(QUrl::fromLocalFile(file));
    player.play();
}

VideoPlayer::Handlers handlers(std::unique_ptr<VideoPlayer> &player, VideoView &view) {
    VideoPlayer::Handlers handlers;
    handlers.frameAvailable = [&player, &view] {
        view.showFrame(player->frame());
        player->setPlace(view.pixelSize());
    };
    handlers.failed = [] { qFatal("the clip does not play"); };
    return handlers;
}

int runPlayer(WatchedApplication &application, const QString &file, QSize window) {
    WatchedView view;
    view.setFixedSize(window);
    view.show();
    std::unique_ptr<VideoPlayer> player;
    VideoPlayer::Handlers all = handlers(player, view);
    all.firstFrame = [&application] {
        print(QStringLiteral("PLAYING"));
        // Showing the window does not count, the first frame does.
        application.longestMs = 0;
    };
    // The last frame is still to be painted.
    all.ended = [] { QTimer::singleShot(100, qApp, &QApplication::quit); };
    player = std::make_unique<VideoPlayer>(all);
    play(*player, view, file);
    QApplication::exec();
    print(QStringLiteral("PAINTED %1 SLICE %2").arg(view.painted).arg(application.longestMs));
    return 0;
}

int runFirstFrame(const QString &file, QSize window) {
    for (int start = 0; start < Starts; ++start) {
        WatchedView view;
        view.setFixedSize(window);
        view.show();
        if (start > 0)
            VideoPlayer::warmUp();
        std::unique_ptr<VideoPlayer> player;
        QElapsedTimer clock;
        view.firstPainted = [&clock] {
            print(QStringLiteral("FIRST %1").arg(milliseconds(clock)));
            QTimer::singleShot(StartPauseMs, qApp, &QApplication::quit);
        };
        player = std::make_unique<VideoPlayer>(handlers(player, view));
        QTimer::singleShot(StartPauseMs, qApp, [&] {
            clock.start();
            play(*player, view, file);
        });
        QApplication::exec();
    }
    return 0;
}

#ifdef VELMORA_BENCH_MULTIMEDIA
int runWidget(const QString &file, QSize window) {
    QVideoWidget widget;
    widget.setFixedSize(window);
    widget.show();
    QAudioOutput sound;
    QMediaPlayer player;
    player.setAudioOutput(&sound);
    player.setVideoOutput(&widget);
    QObject::connect(
        widget.videoSink(), &QVideoSink::videoFrameChanged, &widget,
        [] { print(QStringLiteral("PLAYING")); }, Qt::SingleShotConnection);
    player.setSource(QUrl::fromLocalFile(file));
    player.play();
    return QApplication::exec();
}
#endif

} // namespace

QString VideoSubject::missing(Kind kind) {
#ifndef VELMORA_BENCH_MULTIMEDIA
    if (kind == Kind::Widget)
        return QStringLiteral("Qt Multimedia was not found at build time");
#endif
    if (kind == Kind::ImageSink &&
        QProcess::execute(QStringLiteral("gst-inspect-1.0"),
                          {QStringLiteral("--exists"), QStringLiteral("ximagesink")}) != 0)
        return QStringLiteral("GStreamer's X image sink is not installed");
    return {};
}

QStringList VideoSubject::command() const {
    if (kind != Kind::ImageSink)
        return {QCoreApplication::applicationFilePath(),
                QStringLiteral("--subject"),
                QString::number(int(kind)),
                clip.file,
                QString::number(window.width()),
                QString::number(window.height())};
    // It prints "Setting pipeline to PLAYING".
    return QStringLiteral("gst-launch-1.0 filesrc location=%1 ! decodebin name=all "
                          "all. ! video/x-raw ! queue ! videoconvert ! ximagesink "
                          "all. ! audio/x-raw ! queue ! fakesink sync=true")
        .arg(clip.file)
        .split(QLatin1Char(' '));
}

bool VideoSubject::isSubject(int argc, char **argv) {
    return argc == 6 && qstrcmp(argv[1], "--subject") == 0;
}

int VideoSubject::run(int argc, char **argv) {
    WatchedApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    const QString file = arguments.at(3);
    const QSize window(arguments.at(4).toInt(), arguments.at(5).toInt());
    switch (Kind(arguments.at(2).toInt())) {
    case Kind::Player:
        return runPlayer(application, file, window);
    case Kind::FirstFrame:
        return runFirstFrame(file, window);
    case Kind::Widget:
#ifdef VELMORA_BENCH_MULTIMEDIA
        return runWidget(file, window);
#endif
    case Kind::ImageSink:
        break;
    }
    return 1;
}

} // namespace velmora::bench
