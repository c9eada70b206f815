// SPDX-License-Identifier: Apache-2.0
#include "StoreLink.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace velmora::test {

TEST(StoreLinkTest, BannersAndVideosAreRewrittenDifferently) {
    const QString store = QStringLiteral("https://apps.velmora-store.example/app/id7?at=https://a");
    EXPECT_EQ(
        StoreLink::bannerLink(store),
        QUrl(QStringLiteral("macappstores://classic.velmora-store.example/app/id7?at=https://a")));
    EXPECT_EQ(StoreLink::videoLink(store),
              QUrl(QStringLiteral(
                  "macappstores://apps.velmora-store.example/app/id7?at=macappstores://a")));
    const QString other = QStringLiteral("https://shop.example/x");
    EXPECT_EQ(StoreLink::bannerLink(other), QUrl(other));
    EXPECT_EQ(StoreLink::videoLink(other), QUrl(QStringLiteral("macappstores://shop.example/x")));
    for (const QString &blank : {QString(), QStringLiteral(" \n")}) {
        EXPECT_TRUE(StoreLink::bannerLink(blank).isEmpty());
        EXPECT_TRUE(StoreLink::videoLink(blank).isEmpty());
    }
}

} // namespace velmora::test
