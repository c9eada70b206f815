// SPDX-License-Identifier: Apache-2.0
#include "MediaAddress.h"
#include "tests/support/FreshProcess.h"

namespace velmora::test {

namespace {
const QString Server = QStringLiteral("https://ads.example:8443");

MediaAddress from(const QString &path) {
    return MediaAddress::from(Server, path);
}
} // namespace

TEST(MediaAddressTest, TheCachedNameIsTheLastPathComponentDecoded) {
    const struct {
        const char *path;
        const char *name;
    } cases[] = {{"/a.gif", "a.gif"},
                 {"/deep/er/Ad 1.gif", "Ad 1.gif"},
                 {"/m/b%20c.mp4?v=2#x", "b c.mp4"},
                 {"/x/../y/z.gif", "z.gif"},
                 {"/.hidden", ".hidden"},
                 {"/%D1%8F.gif", "я.gif"},
                 {"/%F0%9F%98%80.gif", "😀.gif"},
                 {"/savedAds-banner.gif", "savedAds-banner.gif"},
                 {"/m/savedAds.lock", "savedAds.lock"}};
    for (const auto &test : cases) {
        const MediaAddress address = from(QString::fromUtf8(test.path));
        EXPECT_EQ(address.refusal, QString()) << test.path;
        EXPECT_EQ(address.remote.authority(), QStringLiteral("ads.example:8443")) << test.path;
        EXPECT_EQ(MediaAddress::cachedName(address.remote), QString::fromUtf8(test.name));
    }
    // Too long for most file systems, which then refuse it themselves.
    EXPECT_EQ(from(QLatin1Char('/') + QString(300, QLatin1Char('a'))).refusal, QString());
}

TEST(MediaAddressTest, UnsafePathsAreRefused) {
    const struct {
        const char *why;
        std::vector<const char *> paths;
    } rows[] = {
        {"is not a path",
         {"", "a.gif", "@evil.example/a.gif", ".evil.example/a.gif", ":99/a.gif",
          "https://evil.example/a.gif"}},
        {"has no file name", {"//", "/", "/dir/", "/..", "/.", "/a/..", "/a/.", "/%2e%2e"}},
        {"forbidden characters",
         {"/..%2F..%2Fevil.gif", "/a%2Fb.gif", "/b%5C..%5Cc.gif", "/b.gif%3Aads", "/%00x.gif"}},
        {"forbidden characters", {"/a%0A.gif", "/a%7F.gif", "/a%C2%85.gif"}},
        {"the ad table's file name", {"/savedAds", "/savedads"}},
    };
    for (const auto &row : rows) {
        for (const char *path : row.paths) {
            const MediaAddress address = from(QLatin1String(path));
            EXPECT_TRUE(address.refusal.contains(QLatin1String(row.why)))
                << path << " -> " << qPrintable(address.refusal);
            EXPECT_TRUE(address.remote.isEmpty()) << path;
        }
    }
    for (const QJsonValue &value : {QJsonValue(5), QJsonValue(true), QJsonValue(QJsonArray())})
        EXPECT_FALSE(MediaAddress::from(Server, value).refusal.isEmpty());
}

} // namespace velmora::test
