// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/gallery/HostReport.h"

#include <QtCore/QProcess>
#include <QtCore/QProcessEnvironment>

namespace velmora::test {

/// A host of the gallery in a process of its own.
class HostProcess {
public:
    /// @param logFile gets what the host writes to standard error
    HostProcess(const QString &name, int startScreenSeconds, const QProcessEnvironment &environment,
                const QString &logFile);
    ~HostProcess();

    void tell(const char *command);
    /// Waits until the host has printed a line, or one that begins with it, since the last
    /// forget().
    bool waitFor(const QString &line, int timeoutMs = 15000);
    /// How many lines that begin like this the host has printed since the last forget().
    qsizetype count(const QString &line);
    void forget();
    HostReport report();
    /// Asks the host to end. @return whether it has ended by itself without an error
    bool end();

private:
    void readLines();

    QProcess m_process;
    QStringList m_lines;
};

} // namespace velmora::test
