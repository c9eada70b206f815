// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Deployment.h"
#include "tests/support/Printing.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

namespace velmora::test {

/// A test that begins like the first run of a newly installed host: no process state, empty
/// settings and an empty caches folder. The deployment points to a port that nobody listens on. The
/// framework's log lines are collected.
class FreshProcess : public ::testing::Test {
protected:
    FreshProcess();
    ~FreshProcess() override;

    /// Simulates the end of the process and the next start: drops all process state and keeps what
    /// is on disk.
    static void restartProcess();

    /// The framework's log lines so far. Debug lines are among them only in debug mode.
    static QStringList logged();
    static qsizetype timesLogged(QAnyStringView part);
    static bool hasLogged(QAnyStringView part) { return timesLogged(part) > 0; }
};

/// The caches folder of the tests' host, and the framework's folder in it.
QString hostCachesFolder();
QString cachesFolder();
/// Puts a file into the caches folder.
void putInCaches(QAnyStringView name, const QByteArray &bytes);

} // namespace velmora::test
