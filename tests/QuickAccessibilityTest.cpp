// SPDX-License-Identifier: Apache-2.0
#include "Workspace.h"
#include "quick/BannerItem.h"
#include "tests/support/AccessibilityClient.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>
#include <QtTest/QTest>

namespace velmora::test {

namespace {

constexpr char Host[] = R"(
import QtQuick
import Velmora

Window {
    property int sent: 0
    width: 1000
    height: 400
    visible: true
    title: "Letters"
    Item {
        width: 100
        height: 40
        focus: true
        activeFocusOnTab: true
        Accessible.role: Accessible.Button
        Accessible.name: "Send"
        Accessible.onPressAction: ++sent
    }
    Banner { anchors.fill: parent; bannerHeight: 90 }
}
)";

} // namespace

/// A host's Qt Quick scene as a screen reader and the keyboard find it.
class QuickAccessibilityTest : public LocalAdServer {
protected:
    QuickAccessibilityTest() {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        Workspace::setOpener([this](const QUrl &link) {
            opened.append(link);
            return true;
        });
        serve({banner("one")});
        qmlRegisterModule("Velmora", 3, 5);
        qmlRegisterTypesAndRevisions<BannerItem>("Velmora", 3);
        QQmlComponent component(&engine);
        component.setData(Host, QUrl(QStringLiteral("qrc:/Host.qml")));
        window.reset(qobject_cast<QQuickWindow *>(component.create()));
        EXPECT_TRUE(window) << component.errorString().toStdString();
        EXPECT_TRUE(eventually([this] {
            window->requestActivate();
            return window->isActive();
        }));
        EXPECT_TRUE(eventually([this] { return window->findChild<BannerItem *>()->isShown(); }));
        time.advance(1);
        handleEvents();
    }
    ~QuickAccessibilityTest() override {
        window.reset();
        Workspace::setOpener(nullptr);
        restartProcess();
    }

    AccessibilityClient::Object find(const char *role, const char *name) {
        return reader.find(QLatin1String(role), QLatin1String(name));
    }
    void press(Qt::Key key) {
        QTest::keyClick(window.get(), key);
        handleEvents();
    }
    /// Qt passes keys on when the screen reader has seen them.
    bool getsFocus(QLatin1String item) {
        return eventually([&] { return window->activeFocusItem()->objectName() == item; });
    }

    AccessibilityClient reader;
    QList<QUrl> opened;
    VirtualTime time;
    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;
};

TEST_F(QuickAccessibilityTest, TheBannerIsFoundAndReachedByTab) {
    int removals = 0;
    QObject context;
    QObject::connect(&VelmoraEvents::instance(), &VelmoraEvents::removeAdsClicked, &context,
                     [&] { ++removals; });
    EXPECT_FALSE(find("link", "Advertisement, opens in the browser").path.isEmpty());
    reader.press(find("push button", "Remove ads"));
    EXPECT_EQ(removals, 1);
    press(Qt::Key_Tab);
    EXPECT_TRUE(getsFocus(QLatin1String("closeButton")));
    press(Qt::Key_Space);
    EXPECT_TRUE(eventually([&] { return removals == 2; }));
    press(Qt::Key_Tab);
    EXPECT_TRUE(getsFocus(QLatin1String("bannerImage")));
    time.advance(1); // an ad that has just appeared ignores keys
    press(Qt::Key_Return);
    EXPECT_TRUE(eventually([&] { return opened.size() == 1; }));
    press(Qt::Key_Tab);
    EXPECT_TRUE(getsFocus(QLatin1String()));
    Velmora::setBannersInTabOrder(false);
    handleEvents();
    press(Qt::Key_Tab);
    EXPECT_TRUE(getsFocus(QLatin1String()));
}

TEST_F(QuickAccessibilityTest, ACoveredSceneCannotBeWorked) {
    const AccessibilityClient::Object send = find("push button", "Send");
    ASSERT_TRUE(reader.press(send));
    EXPECT_EQ(window->property("sent").toInt(), 1);
    Velmora::addSplashScreenToWindow(window.get());
    handleEvents();
    Velmora::forceShow();
    time.advance(1);
    handleEvents();
    EXPECT_FALSE(find("dialog", "Advertisement").path.isEmpty());
    EXPECT_TRUE(find("push button", "Send").path.isEmpty());
    reader.press(send);
    EXPECT_EQ(window->property("sent").toInt(), 1);
    time.advance(10);
    reader.press(find("push button", "Close"));
    time.advance(1);
    EXPECT_TRUE(find("dialog", "Advertisement").path.isEmpty());
    reader.press(find("push button", "Send"));
    EXPECT_EQ(window->property("sent").toInt(), 2);
}

} // namespace velmora::test
