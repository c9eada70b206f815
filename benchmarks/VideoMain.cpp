// SPDX-License-Identifier: Apache-2.0
// Measures the rows "film" and "first-picture": what playing a clip costs, compared with decoding
// it into a plain X window and with Qt's video widget, and how soon its first frame is painted.

#include "benchmarks/BenchOptions.h"
#include "benchmarks/Figure.h"
#include "benchmarks/VideoRun.h"
#include "benchmarks/VideoSubject.h"

#include <QtCore/QFileInfo>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>

using namespace velmora::bench;

namespace {

using Kind = VideoSubject::Kind;

const QString FilmRow = QStringLiteral("film");
const QString FirstPictureRow = QStringLiteral("first-picture");
constexpr QSize LargeWindow(2560, 1600);
constexpr int UsualRounds = 3;

QList<VideoClip> clips() {
    return {{QStringLiteral(VELMORA_SAMPLE_VIDEO), {960, 540}},
            {QStringLiteral(VELMORA_LARGE_VIDEO), {1920, 1080}}};
}

QString text(QSize size) {
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

QString clipMissing(const VideoClip &clip) {
    return QFileInfo::exists(clip.file) ? QString()
                                        : QStringLiteral("ffmpeg was not found at build time");
}

/// The player and what it is compared with, which take turns, so that other load of the machine
/// affects all of them alike.
void measureWindow(const VideoClip &clip, QSize window, const BenchOptions &options) {
    const bool isOwnSize = window == clip.size;
    const QString name =
        isOwnSize ? text(clip.size) : QStringLiteral("%1 in %2").arg(text(clip.size), text(window));
    struct Peer {
        Kind kind;
        Figure figure;
        QString missing;
        std::vector<double> cpu = {};
    };
    std::vector<Peer> peers{
        {Kind::Widget,
         {FilmRow, name, QStringLiteral("Qt's video widget"), QStringLiteral("% CPU"),
          QStringLiteral("ratio"), isOwnSize ? 0.25 : 0.33},
         VideoSubject::missing(Kind::Widget)}};
    if (isOwnSize)
        peers.push_back({Kind::ImageSink,
                         {FilmRow, name, QStringLiteral("plain X image sink"),
                          QStringLiteral("% CPU"), QStringLiteral("ratio"), 1.2},
                         VideoSubject::missing(Kind::ImageSink)});
    const Figure dropped{FilmRow,
                         name + QStringLiteral(", frames dropped"),
                         {},
                         QStringLiteral("frames"),
                         QStringLiteral("exact"),
                         0};
    const Figure slice{FilmRow,
                       name + QStringLiteral(", longest main-thread slice"),
                       {},
                       QStringLiteral("ms"),
                       QStringLiteral("max"),
                       16};
    std::vector<double> cpu;
    std::vector<double> missed;
    std::vector<double> slices;
    const QString fault = clipMissing(clip);
    const int rounds = options.roundsOr(UsualRounds);
    for (int round = 0; round < rounds && fault.isEmpty(); ++round) {
        std::fprintf(stderr, "film %s, %d of %d\n", qPrintable(name), round + 1, rounds);
        const VideoRun run = VideoRun::of({Kind::Player, clip, window}, !options.isSmoke);
        cpu.push_back(run.cpuPercent);
        // The first frame is painted once or twice: before and when the clip starts to play.
        missed.push_back(std::max(0, VideoClip::Frames - run.painted));
        slices.push_back(run.longestSliceMs);
        for (Peer &peer : peers) {
            if (peer.missing.isEmpty())
                peer.cpu.push_back(
                    VideoRun::of({peer.kind, clip, window}, !options.isSmoke).cpuPercent);
        }
    }
    const auto print = [](const Figure &figure, const QString &why,
                          const std::vector<double> &values, const std::vector<double> &reference) {
        why.isEmpty() ? figure.print(values, reference) : figure.printMissing(why);
    };
    for (const Peer &peer : peers)
        print(peer.figure, fault.isEmpty() ? peer.missing : fault, cpu, peer.cpu);
    const QString shortened =
        options.isSmoke ? QStringLiteral("a smoke run does not play to the end") : fault;
    print(dropped, shortened, missed, {});
    if (window == LargeWindow)
        print(slice, shortened, slices, {});
}

void measureFilm(const BenchOptions &options) {
    for (const VideoClip &clip : clips()) {
        measureWindow(clip, clip.size, options);
        if (options.isSmoke)
            continue;
        for (const QSize window : {QSize(640, 360), QSize(1200, 700), LargeWindow})
            measureWindow(clip, window, options);
    }
    if (options.isSmoke)
        measureWindow(clips().constLast(), LargeWindow, options);
}

void measureFirstPicture(const BenchOptions &options) {
    const VideoClip clip = clips().constFirst();
    std::vector<double> cold;
    std::vector<double> warm;
    const int rounds = options.roundsOr(UsualRounds);
    for (int round = 0; round < rounds; ++round) {
        std::fprintf(stderr, "first picture, %d of %d\n", round + 1, rounds);
        const std::vector<double> times =
            VideoRun::firstFrames({Kind::FirstFrame, clip, clip.size});
        cold.push_back(times.front());
        warm.insert(warm.end(), times.begin() + 1, times.end());
    }
    const auto print = [](const char *name, double goal, const std::vector<double> &times) {
        const Figure figure{FirstPictureRow,      QLatin1String(name),        {},
                            QStringLiteral("ms"), QStringLiteral("absolute"), goal};
        figure.print(times);
    };
    print("after a start screen", 50, warm);
    print("in a new process", 150, cold);
}

} // namespace

int main(int argc, char **argv) {
    if (VideoSubject::isSubject(argc, argv))
        return VideoSubject::run(argc, argv);
    const QCoreApplication application(argc, argv);
    const BenchOptions options = BenchOptions::parse(application);
    if (options.wants(FilmRow))
        measureFilm(options);
    if (options.wants(FirstPictureRow))
        measureFirstPicture(options);
    return 0;
}
