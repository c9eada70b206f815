// SPDX-License-Identifier: Apache-2.0
#include "AdTable.h"
#include "FirstPicture.h"
#include "PictureFile.h"
#include "SharedUrlSession.h"
#include "Switches.h"
#include "tests/support/ChildTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>

namespace velmora::test {

class CurlLibraryTest : public FreshProcess {
protected:
    const QString folder = qEnvironmentVariable("VELMORA_TEST_CURL");
    const QString loading = folder + QStringLiteral("/loading");
    const QString loaded = folder + QStringLiteral("/loaded");
};

TEST_F(CurlLibraryTest, DISABLED_WithAnOldAndSlowLibrary) {
    Switches::activateDebugMode();
    UrlRequest another;
    another.url = QUrl(QStringLiteral("https://127.0.0.1:1"));
    UrlResponse response;
    const auto takeResponse = [&](const UrlResponse &r) { response = r; };
    QElapsedTimer waiting;
    waiting.start();
    FirstPicture::expect();
    SharedUrlSession::shared().start(another, takeResponse);
    quietly(50);
    EXPECT_TRUE(!QFile::exists(loading) || waiting.elapsed() > 200)
        << "libcurl was loaded before the first picture was on the screen";

    // There are no stored ads, so no picture comes.
    const auto table = std::make_shared<AdTable>();
    int called = 0;
    table->load([&called] { ++called; });
    ASSERT_TRUE(eventually([this] { return QFile::exists(loading); }));
    for (const char *name : {"/still.jpg", "/banner.gif"}) {
        const PictureFile picture(folder + QLatin1String(name));
        EXPECT_TRUE(picture.refusal().isEmpty()) << picture.refusal().toStdString();
    }
    EXPECT_FALSE(QFile::exists(loaded)) << "the main thread waited for libcurl";
    EXPECT_EQ(called, 0);

    EXPECT_TRUE(QFile(folder + QStringLiteral("/go")).open(QIODevice::WriteOnly));
    EXPECT_TRUE(eventually([&] { return table->hasReply(); }));
    EXPECT_EQ(called, 1);
    response = {};
    SharedUrlSession::shared().start(another, takeResponse);
    EXPECT_TRUE(eventually([&] { return !response.error.isEmpty(); }));
    EXPECT_EQ(response.error, //
              QStringLiteral("libcurl 7.87.0 or later is needed, and libcurl.so.4 is 7.74.0"));
    EXPECT_EQ(timesLogged(QStringLiteral("there is no network: ") + response.error), 1);
    sayPartDone();
}

TEST_F(CurlLibraryTest, AnOldOneIsRefusedAndASlowOneHoldsUpNothingElse) {
    const QTemporaryDir files;
    QImage still(8, 8, QImage::Format_RGB32);
    still.fill(Qt::red);
    ASSERT_TRUE(still.save(files.filePath(QStringLiteral("still.jpg"))));
    QFile banner(files.filePath(QStringLiteral("banner.gif")));
    ASSERT_TRUE(banner.open(QIODevice::WriteOnly));
    banner.write(gif({Qt::red, Qt::blue}));
    banner.close();
    const QString search =
        QStringLiteral(VELMORA_TEST_OLD_CURL ":") + qEnvironmentVariable("LD_LIBRARY_PATH");
    runChildTest(QStringLiteral("*DISABLED_WithAnOldAndSlowLibrary"), QStringLiteral("curl"),
                 {{QStringLiteral("LD_LIBRARY_PATH"), search},
                  {QStringLiteral("VELMORA_TEST_CURL"), files.path()}});
}

} // namespace velmora::test
