// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/IdleRow.h"

#include "benchmarks/Figure.h"
#include "benchmarks/rows/Campaign.h"
#include "benchmarks/rows/HostProcess.h"
#include "tests/support/TestGif.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

namespace velmora::bench {

namespace {

constexpr int UsualRounds = 2;
// The rotation turns every 15 s; the measurement lies between two turns. It begins after 30 s, when
// Qt empties its cache of pixmaps.
constexpr int WarmUpMs = 31'500;
constexpr int IdleMs = 12'000;

/// A host, and the ad server that it uses for itself.
struct Trial {
    const char *name;
    const char *host;
    QByteArray banner;
    std::vector<double> wakeUps;
    std::unique_ptr<BenchServer> bench;
    std::unique_ptr<HostProcess> process;
};

/// How often the threads of a process have waited for something so far.
double waits(qint64 processId) {
    const QString tasks = QStringLiteral("/proc/%1/task").arg(processId);
    double count = 0;
    for (const QString &task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile status(tasks + u'/' + task + QStringLiteral("/status"));
        status.open(QIODevice::ReadOnly);
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith("voluntary_ctxt_switches"))
                count += line.simplified().split(' ').value(1).toDouble();
        }
    }
    return count;
}

} // namespace

void IdleRow::measure(const BenchOptions &options) {
    const QByteArray still = test::gif({Qt::blue}, {728, 90});
    std::vector<Trial> trials;
    trials.push_back({"hidden window", "hidden", Campaign::sampleBanner(), {}, {}, {}});
    trials.push_back({"picture of one frame", "banners", still, {}, {}, {}});
    trials.push_back({"ads removed", "removed", Campaign::sampleBanner(), {}, {}, {}});
    for (int round = 0; round < options.roundsOr(UsualRounds); ++round) {
        for (Trial &trial : trials) {
            trial.bench = std::make_unique<BenchServer>();
            Campaign::serve(*trial.bench, trial.banner, Campaign::sampleFilm());
            trial.process = std::make_unique<HostProcess>(
                QStringLiteral("velmora-bench-host"),
                QStringList{QString::fromLatin1(trial.host), QStringLiteral("1")},
                trial.bench->environment());
            trial.process->waitFor("shown");
        }
        HostProcess::sleepUntil(HostProcess::now() +
                                options.millisecondsOr(WarmUpMs, 500) * qint64(1'000'000));
        std::map<const Trial *, double> before;
        for (const Trial &trial : trials)
            before[&trial] = waits(trial.process->processId());
        const int idleMs = options.millisecondsOr(IdleMs, 300);
        HostProcess::sleepUntil(HostProcess::now() + idleMs * qint64(1'000'000));
        for (Trial &trial : trials) {
            // A thread that has ended takes its count with it.
            const double count = std::max(0.0, waits(trial.process->processId()) - before[&trial]);
            trial.wakeUps.push_back(count * 60'000 / idleMs);
        }
        // Not before all have been looked at: the end of a window wakes up the next one.
        for (Trial &trial : trials)
            trial.process.reset();
    }
    for (const Trial &trial : trials)
        Figure{QStringLiteral("idle"),
               QString::fromLatin1(trial.name),
               {},
               QStringLiteral("wake-ups a minute"),
               QStringLiteral("exact"),
               0}
            .print(trial.wakeUps);
}

} // namespace velmora::bench
