// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/SlicesRow.h"

#include "benchmarks/Figure.h"
#include "benchmarks/rows/Campaign.h"
#include "benchmarks/rows/HostProcess.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSize>

#include <vector>

namespace velmora::bench {

namespace {

constexpr int UsualRounds = 3;
constexpr qsizetype FilmBytes = 50'000'000;
constexpr int LoadSeconds = 4;
// The sample video takes eight seconds; the close button comes after five.
constexpr int CloseMs = 11'000;
constexpr int SmokeCloseMs = 5500;
constexpr double FrameMs = 16;

struct Trial {
    QString name;
    QSize window;
    QByteArray film;
    std::vector<double> slicesMs;
};

/// The sample film in 1920x1080, which the build has made. Empty if it could not.
QByteArray largeFilm() {
    QFile film(QStringLiteral(VELMORA_LARGE_FILM));
    return film.open(QIODevice::ReadOnly) ? film.readAll() : QByteArray();
}

} // namespace

void SlicesRow::measure(const BenchOptions &options) {
    BenchServer bench;
    const qsizetype bytes = options.isSmoke ? 0 : FilmBytes;
    const auto enlarged = [bytes](const QByteArray &film) {
        return film.isEmpty() ? film : Campaign::withSize(film, bytes);
    };
    const QByteArray film = enlarged(Campaign::sampleFilm());
    const QByteArray large = enlarged(largeFilm());
    const QSize small(900, 600);
    const QSize whole(2560, 1600);
    std::vector<Trial> trials{
        {QStringLiteral("window 900x600"), small, film, {}},
        {QStringLiteral("window 2560x1600"), whole, film, {}},
        {QStringLiteral("window 900x600, film 1920x1080"), small, large, {}},
        {QStringLiteral("window 2560x1600, film 1920x1080"), whole, large, {}},
    };
    if (options.isSmoke)
        trials.resize(1);
    for (int round = 0; round < options.roundsOr(UsualRounds); ++round) {
        for (Trial &trial : trials) {
            if (trial.film.isEmpty())
                continue;
            QDir(bench.cachesFolder()).removeRecursively();
            Campaign::serve(bench, Campaign::sampleBanner(), trial.film);
            HostProcess host(QStringLiteral("velmora-bench-host"),
                             {QStringLiteral("slices"), QString::number(trial.window.width()),
                              QString::number(trial.window.height()),
                              QString::number(options.isSmoke ? 1 : LoadSeconds),
                              QString::number(options.millisecondsOr(CloseMs, SmokeCloseMs))},
                             bench.environment());
            trial.slicesMs.push_back(host.waitFor("slice").value(0));
        }
    }
    for (const Trial &trial : trials) {
        const Figure figure{QStringLiteral("slices"),
                            trial.name,
                            QStringLiteral("one frame of a display"),
                            QStringLiteral("ms"),
                            QStringLiteral("absolute"),
                            FrameMs};
        if (trial.slicesMs.empty())
            figure.printMissing(QStringLiteral("there was no ffmpeg to make the film with"));
        else
            figure.print(trial.slicesMs);
    }
}

} // namespace velmora::bench
