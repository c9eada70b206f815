// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/ProcessFigures.h"

#include <QtCore/QByteArray>
#include <QtCore/QProcess>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace velmora::bench {

/// A host that is measured, as a process of its own. It is killed when this is destroyed. What it
/// has to tell it prints as lines of a word and numbers. What it logs is shown only when it fails.
/// Whatever fails ends this program.
class HostProcess {
public:
    /// @param program the name of the host's file, which lies beside this program
    HostProcess(const QString &program, const QStringList &arguments,
                const QProcessEnvironment &environment);
    ~HostProcess();
    HostProcess(const HostProcess &) = delete;
    HostProcess &operator=(const HostProcess &) = delete;

    /// Waits for the line that begins with a word. @return the numbers after the word
    QList<double> waitFor(const QByteArray &word, int timeoutMs = 60'000);

    /// When it was started, in nanoseconds of now().
    qint64 startedAt() const { return m_startedAt; }

    /// What it has used, with its child processes and helpers.
    ProcessFigures figures() const { return ProcessFigures::ofAllWith(m_mark); }
    qint64 processId() const { return m_process.processId(); }
    QProcess &process() { return m_process; }

    /// The time that the hosts use, too: that of the steady clock, in nanoseconds.
    static qint64 now();
    /// Blocks until that time.
    static void sleepUntil(qint64 time);

private:
    QProcess m_process;
    QByteArray m_mark; // the entry of its environment by which its processes are found
    qint64 m_startedAt = 0;
};

} // namespace velmora::bench
