// SPDX-License-Identifier: Apache-2.0
#include "WebLink.h"

#include <gtest/gtest.h>

namespace velmora::test {

TEST(WebLinkTest, OnlyWebAndStorePagesMayBeOpened) {
    for (const char *link :
         {"https://a.example/x", "http://a.example", "macappstores://a.example/id1"})
        EXPECT_TRUE(WebLink::mayOpen(QUrl(QLatin1String(link)))) << link;
    for (const char *link : {"", "file:///etc/passwd", "smb://a/b", "javascript:alert(1)",
                             "ssh://a", "https:", "//a.example/x", "mailto:a@b.example",
                             "data:text/html,x", "x-apple:run", "https://"})
        EXPECT_FALSE(WebLink::mayOpen(QUrl(QLatin1String(link)))) << link;
}

} // namespace velmora::test
