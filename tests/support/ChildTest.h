// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {

inline constexpr char PartDone[] = "The child's part is done.";

/// Tells the parent that the child test ran to this point. Does nothing after a failure.
inline void sayPartDone() {
    if (::testing::Test::HasFailure())
        return;
    std::puts(PartDone);
    std::fflush(stdout);
}

/// An application object that a child test makes some time after the start of main().
template<class Application = QCoreApplication>
struct LateApplication {
    int count = 1;
    char name[5] = "host";
    char *arguments[2] = {name, nullptr};
    Application application{count, arguments};
};

/// The environment of this process with further variables.
inline QProcessEnvironment childEnvironment(const QMap<QString, QString> &variables) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (auto it = variables.begin(); it != variables.end(); ++it)
        environment.insert(it.key(), it.value());
    return environment;
}

/// Runs a program with further variables in its environment, and expects it to print PartDone and
/// to end with status 0.
inline void runChild(const QString &program, const QStringList &arguments,
                     const QMap<QString, QString> &variables) {
    SCOPED_TRACE(arguments.join(QLatin1Char(' ')).toStdString());
    QProcess process;
    process.setProcessEnvironment(childEnvironment(variables));
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    const bool hasEnded = process.waitForFinished(60'000);
    const QByteArray output = process.readAll();
    ASSERT_TRUE(hasEnded) << output.constData();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << output.constData();
    EXPECT_EQ(process.exitCode(), 0) << output.constData();
    EXPECT_TRUE(output.contains(PartDone)) << output.constData();
}

/// Runs one test of this program in a child process, with VELMORA_TEST_CHILD and further variables
/// in its environment, and expects it to call sayPartDone() and to end with status 0. The name of a
/// test that is only to run as a child begins with DISABLED_.
inline void runChildTest(const QString &name, const QString &child,
                         QMap<QString, QString> variables = {}) {
    SCOPED_TRACE(child.toStdString());
    variables.insert(QStringLiteral("VELMORA_TEST_CHILD"), child);
    runChild(QCoreApplication::applicationFilePath(),
             {QStringLiteral("--gtest_filter=") + name,
              QStringLiteral("--gtest_also_run_disabled_tests")},
             variables);
}

/// The same for a test without an application object, with all files in the folder given.
inline void runUnnamedChildTest(const QString &name, const QString &folder,
                                QMap<QString, QString> variables = {}) {
    for (const char *variable : {"VELMORA_TEST_UNNAMED", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        variables.insert(QLatin1String(variable), folder);
    runChildTest(name, QStringLiteral("unnamed"), variables);
}

} // namespace velmora::test
