// SPDX-License-Identifier: Apache-2.0
#include "Archive.h"
#include "BackgroundThread.h"
#include "SerialQueue.h"
#include "tests/support/FreshProcess.h"

#include <QtCore/QCborMap>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <thread>

namespace velmora::test {

TEST(ArchiveTest, OnlyACompleteArchiveOfTheSameKindIsDecoded) {
    const QCborMap root{{QStringLiteral("n"), 5}, {QStringLiteral("text"), QStringLiteral("ä")}};
    const QByteArray bytes = Archive::encode(QStringLiteral("kind"), root);
    ASSERT_EQ(Archive::decode(QStringLiteral("kind"), bytes), QCborValue(root));

    EXPECT_FALSE(Archive::decode(QStringLiteral("other"), bytes));
    EXPECT_FALSE(Archive::decode(QStringLiteral("kind"), bytes + 'x'));
    EXPECT_FALSE(Archive::decode(QStringLiteral("kind"), {}));
    EXPECT_FALSE(Archive::decode(QStringLiteral("kind"), "bplist00 something foreign"));
    for (qsizetype length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(Archive::decode(QStringLiteral("kind"), bytes.left(length))) << length;
}

TEST(ArchiveTest, AFailedWriteKeepsTheOldFile) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("state"));
    ASSERT_TRUE(Archive::write(path, "old"));
    EXPECT_FALSE(Archive::write(folder.filePath(QStringLiteral("missing/state")), "new"));
    EXPECT_EQ(Archive::read(path, 100), QByteArray("old"));
    EXPECT_TRUE(Archive::read(path, 2).isEmpty());
    QDir(folder.path()).mkdir(QStringLiteral("folder"));
    EXPECT_FALSE(Archive::write(folder.filePath(QStringLiteral("folder")), "new"));
    EXPECT_TRUE(Archive::read(folder.filePath(QStringLiteral("folder")), 100).isEmpty());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST(SerialQueueTest, RunsAllWorkInOrderBeforeItIsDestroyed) {
    std::vector<int> done;
    {
        SerialQueue queue("test");
        for (int i = 0; i < 100; ++i)
            queue.run([&done, i] { done.push_back(i); });
        EXPECT_TRUE(queue.drain(std::chrono::seconds(10)));
        EXPECT_EQ(done.size(), 100u);
        queue.run([&done] { done.push_back(100); });
    }
    waitForBackgroundThreads();
    ASSERT_EQ(done.size(), 101u);
    EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
}

TEST(SerialQueueTest, AThreadThatIsKeptTakesTheNextWorkAndEndsWithTheQueue) {
    std::vector<std::thread::id> threads;
    {
        SerialQueue queue("test-kept", SerialQueue::AtEnd::Finishes, std::chrono::hours(1));
        for (int i = 0; i < 2; ++i) {
            queue.run([&threads] { threads.push_back(std::this_thread::get_id()); });
            EXPECT_TRUE(queue.drain(std::chrono::seconds(10)));
        }
    }
    waitForBackgroundThreads();
    for (const QString &task : QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs)) {
        QFile name(QStringLiteral("/proc/self/task/%1/comm").arg(task));
        EXPECT_FALSE(name.open(QIODevice::ReadOnly) && name.readAll() == "test-kept\n");
    }
    ASSERT_EQ(threads.size(), 2u);
    EXPECT_EQ(threads.front(), threads.back());
}

} // namespace velmora::test
