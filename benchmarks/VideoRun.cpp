// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/VideoRun.h"

#include "benchmarks/ProcessFigures.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QThread>

#include <cstdio>

namespace velmora::bench {

namespace {

// The clip lasts eight seconds.
constexpr unsigned long SkippedMs = 1000;
constexpr unsigned long MeasuredMs = 6000;
constexpr unsigned long ShortMs = 300;
constexpr int LongestMs = 15'000;

/// A subject's process. Its video helper is no child of it, but inherits the environment.
class Child {
public:
    explicit Child(const VideoSubject &subject) {
        static int s_run = 0;
        const QString mark =
            QStringLiteral("%1-%2").arg(QCoreApplication::applicationPid()).arg(++s_run);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("VELMORA_BENCH_RUN"), mark);
        m_entry = "VELMORA_BENCH_RUN=" + mark.toLatin1();
        m_process.setProcessEnvironment(environment);
        m_process.setStandardErrorFile(QProcess::nullDevice());
        QStringList arguments = subject.command();
        const QString program = arguments.takeFirst();
        m_process.start(program, arguments);
    }
    ~Child() {
        m_process.kill();
        m_process.waitForFinished();
    }

    bool waitFor(const char *text) {
        while (!m_output.contains(text) && m_process.waitForReadyRead(LongestMs))
            m_output += m_process.readAll();
        return m_output.contains(text);
    }

    QByteArray outputToEnd() {
        m_process.waitForFinished(LongestMs);
        return m_output += m_process.readAll();
    }

    bool isRunning() const { return m_process.state() == QProcess::Running; }
    double cpuSeconds() const { return ProcessFigures::ofAllWith(m_entry).cpuSeconds; }

private:
    QProcess m_process;
    QByteArray m_entry;
    QByteArray m_output;
};

} // namespace

std::optional<VideoRun> VideoRun::attempt(const VideoSubject &subject, bool toItsEnd) {
    Child child(subject);
    if (!child.waitFor("PLAYING"))
        return {};
    QThread::msleep(toItsEnd ? SkippedMs : ShortMs);
    QElapsedTimer clock;
    clock.start();
    const double before = child.cpuSeconds();
    QThread::msleep(toItsEnd ? MeasuredMs : ShortMs);
    const double used = child.cpuSeconds() - before;
    const double elapsed = double(clock.nsecsElapsed()) / 1e9;
    VideoRun run;
    run.cpuPercent = used / elapsed * 100;
    if (subject.kind != VideoSubject::Kind::Player || !toItsEnd)
        return child.isRunning() ? std::optional(run) : std::nullopt;
    const QByteArray output = child.outputToEnd();
    const auto found =
        std::sscanf(output.constData() + std::max<qsizetype>(0, output.indexOf("PAINTED")),
                    "PAINTED %d SLICE %lf", &run.painted, &run.longestSliceMs);
    return found == 2 ? std::optional(run) : std::nullopt;
}

VideoRun VideoRun::of(const VideoSubject &subject, bool toItsEnd) {
    for (int attempts = 0; attempts < 5; ++attempts) {
        if (const auto run = attempt(subject, toItsEnd))
            return *run;
        std::fprintf(stderr, "%s did not play; trying again\n", qPrintable(subject.clip.file));
    }
    qFatal("%s does not play", qPrintable(subject.clip.file));
}

std::vector<double> VideoRun::firstFrames(const VideoSubject &subject) {
    std::vector<double> times;
    const auto lines = Child(subject).outputToEnd().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("FIRST "))
            times.push_back(line.mid(6).toDouble());
    }
    if (times.size() < 2)
        qFatal("%s does not start", qPrintable(subject.clip.file));
    return times;
}

} // namespace velmora::bench
