// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FreshProcess.h"
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

Window {
    property string acted
    property alias text: input.text
    width: 640
    height: 480
    visible: true

    TextInput {
        id: input
        focus: true
        text: "draft"
    }
    Shortcut {
        sequence: "Ctrl+D"
        onActivated: acted += "window "
    }
    Shortcut {
        sequence: "Ctrl+L"
        context: Qt.ApplicationShortcut
        onActivated: acted += "application "
    }
}
)";

} // namespace

class QuickInputTest : public FreshProcess {
protected:
    ~QuickInputTest() override {
        window.reset();
        restartProcess();
    }
    /// The keys, as the window system sends them to the window.
    void type() {
        // The platform "offscreen" makes every window that is shown the focus window.
        window->requestActivate();
        handleEvents();
        QTest::keyClick(window.get(), Qt::Key_X);
        QTest::keyClick(window.get(), Qt::Key_D, Qt::ControlModifier);
        QTest::keyClick(window.get(), Qt::Key_L, Qt::ControlModifier);
        handleEvents();
    }
    QString property(const char *name) const { return window->property(name).toString(); }

    VirtualTime time;
    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;
};

TEST_F(QuickInputTest, OnlyShortcutsOfTheApplicationActInACoveredScene) {
    QQmlComponent component(&engine);
    component.setData(Host, QUrl(QStringLiteral("qrc:/Host.qml")));
    window.reset(qobject_cast<QQuickWindow *>(component.create()));
    ASSERT_TRUE(window) << component.errorString().toStdString();
    window->requestActivate();
    ASSERT_TRUE(eventually([this] { return window->isExposed(); }));
    ASSERT_TRUE(Velmora::addSplashScreenToWindow(window.get()));
    handleEvents();
    Velmora::forceShow();
    handleEvents();
    ASSERT_TRUE(Velmora::isShowSplashScreen());
    type();
    EXPECT_EQ(property("text"), QStringLiteral("draft"));
    EXPECT_EQ(property("acted"), QStringLiteral("application "));

    Velmora::removeSplashScreenFromWindow(window.get());
    type();
    EXPECT_NE(property("text"), QStringLiteral("draft"));
    EXPECT_EQ(property("acted"), QStringLiteral("application window application "));
}

} // namespace velmora::test
