// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {

inline constexpr char PartDone[] = "The child's part is done.";

/// Tells the parent process that a child test has run to its end. Prints nothing after a failure.
inline void sayPartDone() {
    if (::testing::Test::HasFailure())
        return;
    std::puts(PartDone);
    std::fflush(stdout);
}

/// Runs one test of this program in a process of its own, with VELMORA_TEST_CHILD and further
/// variables in its environment. Expects it to call sayPartDone() and the process to exit with 0. A
/// test that is only for a child process has a name with DISABLED_.
inline void runChildTest(const QString &name, const QString &child,
                         const QMap<QString, QString> &variables = {}) {
    SCOPED_TRACE(child.toStdString());
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VELMORA_TEST_CHILD"), child);
    for (auto it = variables.begin(); it != variables.end(); ++it)
        environment.insert(it.key(), it.value());
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--gtest_filter=") + name,
                   QStringLiteral("--gtest_also_run_disabled_tests")});
    const bool hasEnded = process.waitForFinished(60'000);
    const QByteArray output = process.readAll();
    ASSERT_TRUE(hasEnded) << output.constData();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << output.constData();
    EXPECT_EQ(process.exitCode(), 0) << output.constData();
    EXPECT_TRUE(output.contains(PartDone)) << output.constData();
}

/// Runs a child test without an application object, and with a folder in which all settings and
/// caches would be written.
inline void runUnnamedChildTest(const QString &name, const QString &folder,
                                QMap<QString, QString> variables = {}) {
    for (const char *variable : {"VELMORA_TEST_UNNAMED", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        variables.insert(QLatin1String(variable), folder);
    runChildTest(name, QStringLiteral("unnamed"), variables);
}

} // namespace velmora::test
