// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/HostProcess.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>

#include <chrono>
#include <cstdio>
#include <thread>

namespace velmora::bench {

HostProcess::HostProcess(const QString &program, const QStringList &arguments,
                         const QProcessEnvironment &environment) {
    static int s_count = 0;
    const QString mark =
        QStringLiteral("%1-%2").arg(QCoreApplication::applicationPid()).arg(++s_count);
    m_mark = "VELMORA_BENCH_RUN=" + mark.toLatin1();
    QProcessEnvironment own = environment;
    own.insert(QStringLiteral("VELMORA_BENCH_RUN"), mark);
    m_process.setProcessEnvironment(own);
    m_startedAt = now();
    m_process.start(QCoreApplication::applicationDirPath() + u'/' + program, arguments);
    if (!m_process.waitForStarted())
        qFatal("%s cannot be started", qPrintable(program));
}

HostProcess::~HostProcess() {
    m_process.kill();
    m_process.waitForFinished();
}

QList<double> HostProcess::waitFor(const QByteArray &word, int timeoutMs) {
    const QDeadlineTimer deadline(timeoutMs);
    while (!deadline.hasExpired()) {
        if (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(int(deadline.remainingTime())) &&
                m_process.state() == QProcess::NotRunning)
                break;
            continue;
        }
        const QList<QByteArray> parts = m_process.readLine().simplified().split(' ');
        if (parts.first() != word)
            continue;
        QList<double> numbers;
        for (const QByteArray &part : parts.mid(1))
            numbers.append(part.toDouble());
        return numbers;
    }
    std::fputs(m_process.readAllStandardError().constData(), stderr);
    qFatal("%s did not print \"%s\"", qPrintable(m_process.program()), word.constData());
}

qint64 HostProcess::now() {
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void HostProcess::sleepUntil(qint64 time) {
    std::this_thread::sleep_for(std::chrono::nanoseconds(time - now()));
}

} // namespace velmora::bench
