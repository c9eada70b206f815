// SPDX-License-Identifier: Apache-2.0
#include "AdsCacheInfoStorage.h"
#include "AdKeys.h"
#include "AdTableFile.h"
#include "Archive.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"
#include "tests/support/ChildTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/HeldDisk.h"
#include "tests/support/HostName.h"
#include "tests/support/Waiting.h"

#include <QtCore/QCborValue>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

namespace velmora::test {

class AdsCacheInfoStorageTest : public FreshProcess {
protected:
    struct LoadedStorage : AdsCacheInfoStorage {
        LoadedStorage() {
            EXPECT_TRUE(eventually([this] { return isLoaded(); }));
        }
    };

    static QJsonObject ad(int id) {
        return {{QStringLiteral("banner_id"), id}, {QStringLiteral("priority"), 1.5}};
    }

    static QJsonArray onDisk(const QString &key = kMainBannerKey) {
        EXPECT_TRUE(ProcessRoot::get<DiskQueue>().drain(std::chrono::seconds(10)));
        return AdsCacheInfoStorage::cacheInfo().value_or(QJsonObject()).value(key).toArray();
    }

    static void putTable(const QJsonObject &table) {
        putInCaches(QStringLiteral("savedAds"),
                    QJsonDocument(table).toJson(QJsonDocument::Compact));
    }
};

TEST_F(AdsCacheInfoStorageTest, EveryNewAdIsOnDiskForTheNextRun) {
    QJsonObject rich = QJsonDocument::fromJson(
                           R"({"banner_id": 9007199254740993, "priority": 2.5, "big": 1e300,
                               "updated": "\u044f", "nested": [null, true, {"a": -1}]})")
                           .object();
    {
        LoadedStorage storage;
        EXPECT_TRUE(storage.infoDictionary().isEmpty());
        storage.addBannerInfo(ad(1));
        storage.addBannerInfo(rich);
        storage.addVideoInfo(ad(3));
    }
    restartProcess();
    LoadedStorage storage;
    EXPECT_EQ(storage.infoDictionary().value(kMainBannerKey).toArray(), (QJsonArray{ad(1), rich}));
    EXPECT_EQ(storage.infoDictionary().value(kMainVideoKey).toArray(), QJsonArray{ad(3)});
}

TEST_F(AdsCacheInfoStorageTest, OnlyANewAdIsWrittenAndThenADeletedFolderIsCreatedAgain) {
    LoadedStorage storage;
    storage.addBannerInfo(ad(1));
    ASSERT_EQ(onDisk().size(), 1);
    ASSERT_TRUE(QDir(cachesFolder()).removeRecursively());
    storage.addBannerInfo(ad(1));
    storage.addBannerInfo({});
    storage.addInfo(ad(2), {});
    EXPECT_TRUE(onDisk().isEmpty());
    storage.addBannerInfo(ad(2));
    EXPECT_EQ(onDisk(), (QJsonArray{ad(1), ad(2)}));
}

TEST_F(AdsCacheInfoStorageTest, WhatCouldNotBeWrittenIsWrittenWithTheNextAds) {
    LoadedStorage storage;
    storage.addBannerInfo(ad(0));
    ASSERT_EQ(onDisk().size(), 1);
    QFile file(cachesFolder() + QStringLiteral("/savedAds"));
    const qint64 size = file.size();
    ASSERT_TRUE(file.resize(AdTableFile::LargestSize + 1));
    storage.addBannerInfo(ad(1));
    ASSERT_TRUE(ProcessRoot::get<DiskQueue>().drain(std::chrono::seconds(10)));
    ASSERT_TRUE(file.resize(size));
    constexpr int Count = 3000;
    {
        const HeldDisk held;
        for (int id = 2; id < Count; ++id)
            storage.addBannerInfo(ad(id));
    }
    const QJsonArray stored = onDisk();
    ASSERT_EQ(stored.size(), Count);
    for (int id = 0; id < Count; ++id)
        ASSERT_EQ(stored.at(id).toObject(), ad(id));
}

TEST_F(AdsCacheInfoStorageTest, OtherTopLevelKeysOfTheFileAreKept) {
    putTable({{QStringLiteral("later"), QJsonObject{{QStringLiteral("x"), 1}}},
              {kMainBannerKey, QJsonArray{ad(1)}}});
    LoadedStorage storage;
    storage.addVideoInfo(ad(2));
    EXPECT_EQ(onDisk().size(), 1);
    EXPECT_EQ(AdsCacheInfoStorage::cacheInfo()->value(QStringLiteral("later")).toObject(),
              (QJsonObject{{QStringLiteral("x"), 1}}));
}

TEST_F(AdsCacheInfoStorageTest, WhatIsUnreadableInTheFileIsSkipped) {
    const QByteArray line = "\n" + QJsonDocument(QJsonObject{{kMainBannerKey, QJsonArray{ad(1)}}})
                                       .toJson(QJsonDocument::Compact);
    const QList<QByteArray> files{
        {},
        line.left(line.size() / 2),
        "bplist00 another format",
        QByteArray(1000, '\0'),
        "[]\n5\n\"text\"",
        R"({"standard":[5,[],null]})",
    };
    for (const QByteArray &file : files) {
        putInCaches("savedAds", file);
        LoadedStorage storage;
        EXPECT_EQ(storage.infoDictionary().value(kMainBannerKey).toArray(), QJsonArray());
        storage.addBannerInfo(ad(7));
        EXPECT_EQ(onDisk(), QJsonArray{ad(7)}) << file.constData();
    }
    putInCaches(QStringLiteral("savedAds"), line + line.left(20) + line);
    EXPECT_EQ(onDisk(), QJsonArray{ad(1)});
}

TEST_F(AdsCacheInfoStorageTest, AdsThatAreAddedWhileTheFileIsLoadingAreKeptOnce) {
    for (const bool isDestroyedBefore : {true, false}) {
        putTable({{kMainBannerKey, QJsonArray{ad(1), ad(2)}}});
        restartProcess();
        {
            HeldDisk held;
            AdsCacheInfoStorage storage;
            for (int id = 2; id < 5; ++id)
                storage.addBannerInfo(ad(id));
            EXPECT_EQ(storage.infoDictionary().value(kMainBannerKey).toArray().size(), 3);
            bool isCalled = false;
            storage.whenLoaded([&] { isCalled = true; });
            if (!isDestroyedBefore) {
                held.release();
                EXPECT_TRUE(eventually([&] { return isCalled; }));
                EXPECT_EQ(storage.infoDictionary().value(kMainBannerKey).toArray().size(), 4);
            }
        }
        EXPECT_EQ(onDisk(), (QJsonArray{ad(1), ad(2), ad(3), ad(4)}));
    }
    // Those of a folder that is left meanwhile are saved in it.
    restartProcess();
    const HostName name;
    AdsCacheInfoStorage storage;
    {
        const HeldDisk held;
        HostName::set("later");
        storage.addBannerInfo(ad(5));
        HostName::set("host");
        EXPECT_TRUE(storage.infoDictionary().isEmpty());
    }
    EXPECT_TRUE(eventually([&] { return storage.isLoaded(); }));
    EXPECT_EQ(storage.infoDictionary().value(kMainBannerKey).toArray().size(), 4);
    HostName::set("later");
    EXPECT_EQ(onDisk(), QJsonArray{ad(5)});
    QDir(cachesFolder()).removeRecursively();
}

TEST_F(AdsCacheInfoStorageTest, TheFilesOfEarlierVersionsAreMovedAndTheHostsStay) {
    const auto put = [](const QString &name, const QByteArray &bytes) {
        QDir().mkpath(hostCachesFolder());
        QFile file(hostCachesFolder() + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    };
    const QJsonObject banner{{kBannerImgURL, QStringLiteral("/media/one.gif")}};
    const QJsonObject video{{kVideoCapture, QStringLiteral("/media/film.mp4")},
                            {kVideoImage, QStringLiteral("/media/gone.png")}};
    const QJsonObject table{{kMainBannerKey, QJsonArray{banner}},
                            {kMainVideoKey, QJsonArray{video}}};
    put(QStringLiteral("savedAds"),
        Archive::encode(QStringLiteral("savedAds"), QCborValue::fromJsonValue(table)));
    for (const char *name : {"one.gif", "film.mp4", "of-the-host.gif"})
        put(QLatin1String(name), name);
    {
        LoadedStorage storage;
        EXPECT_EQ(storage.infoDictionary(), table);
    }
    restartProcess();
    EXPECT_EQ(LoadedStorage().infoDictionary(), table);
    const auto filesIn = [](const QString &folder) {
        return QDir(folder).entryList(QDir::Files, QDir::Name);
    };
    EXPECT_EQ(filesIn(hostCachesFolder()), QStringList{QStringLiteral("of-the-host.gif")});
    EXPECT_EQ(filesIn(cachesFolder()),
              (QStringList{QStringLiteral("film.mp4"), QStringLiteral("one.gif"),
                           QStringLiteral("savedAds")}));

    // A file of the host that happens to have the table's name.
    put(QStringLiteral("savedAds"), "the host's");
    restartProcess();
    EXPECT_EQ(LoadedStorage().infoDictionary(), table);
    EXPECT_TRUE(QFile::exists(hostCachesFolder() + QStringLiteral("/savedAds")));
}

TEST_F(AdsCacheInfoStorageTest, WithAFolderOfTheFilesNameAdsAreKeptInMemoryOnly) {
    QDir().mkpath(cachesFolder() + QStringLiteral("/savedAds/inside"));
    LoadedStorage storage;
    storage.addBannerInfo(ad(1));
    EXPECT_TRUE(onDisk().isEmpty());
    EXPECT_EQ(storage.infoDictionary().value(kMainBannerKey).toArray().size(), 1);
    EXPECT_TRUE(QFileInfo(cachesFolder() + QStringLiteral("/savedAds/inside")).isDir());
}

TEST_F(AdsCacheInfoStorageTest, ProcessesThatWriteTheSameFileLoseNoAd) {
    if (qEnvironmentVariableIsSet("VELMORA_TEST_CHILD")) {
        const int first = qEnvironmentVariableIntValue("VELMORA_TEST_CHILD");
        AdsCacheInfoStorage storage; // as the first of these processes it may still be loading
        for (int i = 0; i < 20; ++i)
            storage.addBannerInfo(ad(first + i));
        return;
    }
    std::vector<std::unique_ptr<QProcess>> writers;
    for (const int first : {100, 200, 300}) {
        auto writer = std::make_unique<QProcess>();
        writer->setProcessEnvironment(
            childEnvironment({{QStringLiteral("VELMORA_TEST_CHILD"), QString::number(first)}}));
        writer->start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("--gtest_filter=*ProcessesThatWriteTheSameFileLoseNoAd")});
        writers.push_back(std::move(writer));
    }
    for (const auto &writer : writers) {
        ASSERT_TRUE(writer->waitForFinished(60'000));
        EXPECT_EQ(writer->exitCode(), 0) << writer->readAllStandardOutput().constData();
    }
    const QJsonArray ads = onDisk();
    EXPECT_EQ(ads.size(), 60);
    for (const int first : {100, 200, 300})
        EXPECT_TRUE(ads.contains(ad(first)) && ads.contains(ad(first + 19))) << first;
}

} // namespace velmora::test
