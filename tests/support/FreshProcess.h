// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Deployment.h"
#include "tests/support/Printing.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

namespace velmora::test {

/// A test that begins like a freshly installed host: no process state, empty settings, an empty
/// caches folder, a deployment that points nowhere, and the framework's log lines collected.
class FreshProcess : public ::testing::Test {
protected:
    FreshProcess();
    ~FreshProcess() override;

    /// Ends the process's state and starts the next run: what is on disk stays.
    static void restartProcess();

    /// The log lines of the framework so far, debug lines only while debug mode is on.
    static QStringList logged();
    static bool hasLogged(const QString &part);

    static void useDeployment(const Deployment &deployment);

private:
    static void clearDisk();
};

/// Where the tests' host keeps its caches.
QString cachesFolder();
/// Puts a file into the caches folder.
void putInCaches(const QString &name, const QByteArray &bytes);

} // namespace velmora::test
