// SPDX-License-Identifier: Apache-2.0
#include "MainQueue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>

#include <gtest/gtest.h>

#include <vector>

// Whether a leak of ours is reported when it happens under Qt's event loop, as nearly everything
// does. A suppression that is too wide would hide it.
#ifdef __SANITIZE_ADDRESS__
namespace velmora::test {

namespace {

QByteArray outputOf(const QString &child) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--gtest_filter=") + child,
                   QStringLiteral("--gtest_also_run_disabled_tests")});
    EXPECT_TRUE(process.waitForFinished(60'000));
    EXPECT_NE(process.exitCode(), 0);
    return process.readAll();
}

void runUnderTheEventLoop(const std::function<void()> &work) {
    MainQueue::post([work] {
        work();
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
}

} // namespace

/// Run by the test below.
TEST(FaultyHost, DISABLED_LeaksUnderTheEventLoop) {
    static std::vector<int *> lost;
    runUnderTheEventLoop([] { lost.push_back(new int[100]); });
    lost.clear();
}

TEST(SanitizerCanaryTest, ALeakUnderTheEventLoopIsReported) {
    EXPECT_TRUE(
        outputOf(QStringLiteral("FaultyHost.DISABLED_Leaks*")).contains("detected memory leaks"));
}

} // namespace velmora::test
#endif
