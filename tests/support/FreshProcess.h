// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Deployment.h"
#include "tests/support/Printing.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

namespace velmora::test {

/// A test that begins like a freshly installed host: without process state, settings and cached
/// files, with servers that cannot be reached, and with the framework's log lines collected.
class FreshProcess : public ::testing::Test {
protected:
    FreshProcess();
    ~FreshProcess() override;

    /// Drops the process state, as if the next process run began. Files stay.
    static void restartProcess();

    /// The framework's log lines since the test began. LOG() writes only in debug mode.
    static QStringList logged();
    static bool hasLogged(const QString &part);

    static void useDeployment(const Deployment &deployment);

private:
    static void clearDisk();
};

/// The caches folder of the tests' host.
QString cachesFolder();
/// Writes a file into the caches folder.
void putInCaches(const QString &name, const QByteArray &bytes);

} // namespace velmora::test
