// SPDX-License-Identifier: Apache-2.0
#include "MediaCache.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace velmora::test {

using adserver::Fault;

class MediaCacheTest : public LocalAdServer {};

TEST_F(MediaCacheTest, ADeletedCachesFolderIsCreatedAgain) {
    const QString path = QStringLiteral("/media/one.gif");
    const QString local = cachesFolder() + QStringLiteral("/one.gif");
    server.campaign().setMedia(path, "a picture");
    std::optional<QUrl> provided;
    const auto provide = [&] {
        provided.reset();
        MediaCache::provide(QUrl(baseUrl + path), [&](const QUrl &file) { provided = file; });
    };
    const auto isProvided = [&] { return provided == QUrl::fromLocalFile(local); };
    for (int download = 1; download <= 2; ++download) {
        provide();
        ASSERT_TRUE(eventually(isProvided));
        EXPECT_TRUE(QFile::exists(local));
        EXPECT_EQ(server.log().count(path), download);
        ASSERT_TRUE(ProcessRoot::get<DiskQueue>().drain(std::chrono::seconds(10)));
        ASSERT_TRUE(QDir(cachesFolder()).removeRecursively());
    }

    // The folder is deleted while the file is being downloaded.
    server.faults().set(path, Fault::hang());
    provide();
    ASSERT_TRUE(eventually([&] { return server.log().count(path) == 3; }));
    QDir(cachesFolder()).removeRecursively();
    server.faults().clear();
    EXPECT_TRUE(eventually(isProvided));
    EXPECT_TRUE(QFile::exists(local));
}

} // namespace velmora::test
