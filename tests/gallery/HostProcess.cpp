// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/HostProcess.h"

#include "tests/support/Waiting.h"

#include <algorithm>

namespace velmora::test {

HostProcess::HostProcess(const QString &name, int startScreenSeconds,
                         const QProcessEnvironment &environment, const QString &logFile) {
    m_process.setProcessEnvironment(environment);
    m_process.setStandardErrorFile(logFile);
    m_process.start(QStringLiteral(VELMORA_TEST_GALLERY),
                    {name, QString::number(startScreenSeconds)});
}

HostProcess::~HostProcess() {
    m_process.kill();
    m_process.waitForFinished(5000);
}

void HostProcess::tell(const char *command) {
    m_process.write(command);
    m_process.write("\n");
}

void HostProcess::readLines() {
    while (m_process.canReadLine())
        m_lines.append(QString::fromUtf8(m_process.readLine()).trimmed());
}

bool HostProcess::waitFor(const QString &line, int timeoutMs) {
    return eventually([&] { return count(line) > 0 || m_process.state() == QProcess::NotRunning; },
                      timeoutMs) &&
           count(line) > 0;
}

qsizetype HostProcess::count(const QString &line) {
    readLines();
    return std::count_if(m_lines.begin(), m_lines.end(),
                         [&line](const QString &printed) { return printed.startsWith(line); });
}

void HostProcess::forget() {
    readLines();
    m_lines.clear();
}

HostReport HostProcess::report() {
    const qsizetype before = count(QStringLiteral("reported"));
    tell("report");
    eventually([&] { return count(QStringLiteral("reported")) > before; });
    // The last report alone: windows and widgets are not counted twice.
    QStringList lines;
    QStringList others;
    for (const QString &line : std::as_const(m_lines)) {
        const bool isReport =
            line.startsWith(QLatin1String("window ")) || line.startsWith(QLatin1String("widget "));
        (isReport ? lines : others).append(line);
    }
    m_lines = others;
    return HostReport(lines);
}

bool HostProcess::end() {
    tell("quit");
    return eventually([this] { return m_process.state() == QProcess::NotRunning; }) &&
           m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
}

} // namespace velmora::test
