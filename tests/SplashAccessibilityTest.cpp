// SPDX-License-Identifier: Apache-2.0
#include "tests/support/AccessibilityClient.h"
#include "tests/support/OverlayHost.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtGui/QRasterWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QVBoxLayout>

#include <iostream>

namespace velmora::test {

using Object = AccessibilityClient::Object;

/// A host with an editor, as a screen reader finds it: through AT-SPI, on a display.
class SplashAccessibilityTest : public SplashHost, public ::testing::WithParamInterface<bool> {
protected:
    SplashAccessibilityTest() {
        auto *content = new QWidget;
        window->setWindowTitle(QStringLiteral("Writer"));
        window->menuBar()->addMenu(QStringLiteral("File"));
        window->setCentralWidget(content);
        auto *layout = new QVBoxLayout(content);
        text->setAccessibleName(QStringLiteral("Letter"));
        amount->setAccessibleName(QStringLiteral("Amount"));
        table->setAccessibleName(QStringLiteral("Addresses"));
        table->setItem(0, 0, new QTableWidgetItem(QStringLiteral("Home")));
        for (QWidget *each : {static_cast<QWidget *>(text), static_cast<QWidget *>(send),
                              static_cast<QWidget *>(amount), static_cast<QWidget *>(table)})
            layout->addWidget(each);
        QObject::connect(send, &QPushButton::clicked, [this] { ++sent; });
        window->resize(800, 600);
        window->show();
        text->setFocus();
        EXPECT_TRUE(OverlayHost::activate(window.get()));
    }

    void registerWindow(bool isUnity = false) {
        if (isUnity)
            Velmora::addSplashScreenToUnityWindow(window.get());
        else
            Velmora::addSplashScreenToWindow(window.get());
        handleEvents();
    }

    QString told() {
        const QString lines = reader.dump().join(QLatin1Char('\n'));
        if (qEnvironmentVariableIsSet("VELMORA_PRINT_ACCESSIBLE"))
            std::cout << lines.toStdString() << "\n\n";
        return lines;
    }
    Object find(const char *role, const char *name) {
        return reader.find(QLatin1String(role), QLatin1String(name));
    }
    bool finds(const char *role, const char *name) { return !find(role, name).path.isEmpty(); }

    AccessibilityClient reader;
    int sent = 0;
    std::unique_ptr<QMainWindow> window = std::make_unique<QMainWindow>();
    QLineEdit *text = new QLineEdit(QStringLiteral("Dear Ann"));
    QPushButton *send = new QPushButton(QStringLiteral("Send"));
    QSlider *amount = new QSlider(Qt::Horizontal);
    QTableWidget *table = new QTableWidget(1, 1);
};

TEST_F(SplashAccessibilityTest, EachPhaseIsADialogWithItsControlsAndNothingElse) {
    Velmora::setDefaultVideoWithURL(
        QUrl::fromLocalFile(QStringLiteral(VELMORA_TEST_CLIPS "/longer.mp4")),
        QUrl(QStringLiteral("https://shop.velmora-store.example/")));
    registerWindow();
    const QString before = told();
    EXPECT_TRUE(finds("push button", "Send"));

    Velmora::forceShow();
    time.advance(1);
    const QString start = told();
    EXPECT_TRUE(start.contains(QLatin1String("dialog \"Advertisement\", modal")));
    EXPECT_TRUE(start.contains(QLatin1String("progress bar \"Countdown\"")));
    EXPECT_TRUE(finds("push button", "Remove ads"));
    EXPECT_TRUE(start.contains(QLatin1String("\"File\""))) << "the menu bar is not covered";
    for (const char *name : {"Letter", "Send", "Amount", "Addresses", "Home", "Close", "Mute"})
        EXPECT_FALSE(start.contains(QLatin1String(name))) << name;
    EXPECT_FALSE(finds("link", "Advertisement, opens in the browser"));
    reader.press(find("push button", "Remove ads"));
    EXPECT_TRUE(heard().contains(QStringLiteral("tryremoveads")));

    time.advance(4);
    ASSERT_TRUE(eventually([this] { return finds("check box", "Mute"); }));
    const QString video = told();
    EXPECT_TRUE(video.contains(QLatin1String("progress bar \"Countdown\"")));
    EXPECT_FALSE(finds("push button", "Close"));
    reader.press(find("check box", "Mute"));
    EXPECT_TRUE(presenter().isMuted());
    EXPECT_TRUE(told().contains(QLatin1String("check box \"Mute\", checked")));
    time.advance(1);
    reader.press(find("link", "Advertisement, opens in the browser"));
    EXPECT_EQ(opened.size(), 1);

    time.advance(5);
    ASSERT_TRUE(eventually([] { return presenter().isShowEnd(); }));
    time.advance(1);
    told();
    EXPECT_TRUE(finds("link", "Advertisement, opens in the browser"));
    EXPECT_FALSE(finds("check box", "Mute"));
    reader.press(find("push button", "Close"));
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    time.advance(1);
    handleEvents();
    EXPECT_EQ(told(), before);
}

// Screen readers keep what they have found, and can work it at any time.
TEST_P(SplashAccessibilityTest, NothingCoveredCanBeWorked) {
    registerWindow(GetParam());
    const Object letter = find("text", "Letter");
    const Object button = find("push button", "Send");
    const Object slider = find("slider", "Amount");
    ASSERT_TRUE(reader.setText(letter, QStringLiteral("Dear Bob")));
    Velmora::forceShow();
    time.advance(1);
    handleEvents();
    EXPECT_TRUE(finds("dialog", "Advertisement"));

    EXPECT_FALSE(reader.setText(letter, QStringLiteral("gone")));
    EXPECT_FALSE(reader.press(button));
    EXPECT_FALSE(reader.grabFocus(letter));
    EXPECT_FALSE(reader.press(slider));
    // What is asked about meanwhile, because it changes, can't be worked either.
    send->setText(QStringLiteral("Send now"));
    amount->setValue(50);
    auto *late = new QPushButton(QStringLiteral("Late"), window->centralWidget());
    late->show();
    handleEvents();
    EXPECT_FALSE(told().contains(QLatin1String("Send now")));
    EXPECT_FALSE(told().contains(QLatin1String("Late")));
    quietly(200); // a pressed button takes 100 ms
    EXPECT_EQ(text->text(), QStringLiteral("Dear Bob"));
    EXPECT_EQ(sent, 0);
    EXPECT_NE(QApplication::focusWidget(), text);

    time.advance(10);
    ASSERT_TRUE(reader.press(find("push button", "Close")));
    time.advance(1);
    handleEvents();
    EXPECT_FALSE(finds("dialog", "Advertisement"));
    EXPECT_TRUE(reader.setText(find("text", "Letter"), QStringLiteral("Dear Cid")));
    EXPECT_EQ(text->text(), QStringLiteral("Dear Cid"));
    reader.press(find("push button", "Send now"));
    EXPECT_TRUE(eventually([this] { return sent == 1; }));
    EXPECT_EQ(QApplication::focusWidget(), text);
}

INSTANTIATE_TEST_SUITE_P(Overlay, SplashAccessibilityTest, ::testing::Values(false, true),
                         [](const auto &test) { return test.param ? "Native" : "Child"; });

TEST_F(SplashAccessibilityTest, TheTimeLeftAndTheCloseButtonAreAnnounced) {
    registerWindow();
    reader.heard();
    Velmora::forceShow();
    time.advance(1);
    EXPECT_EQ(reader.heard().filter(QStringLiteral("Advertisement. ")),
              QStringList{QStringLiteral("Advertisement. Seconds until it can be closed: 10")});
    time.advance(8.9);
    EXPECT_EQ(reader.heard().filter(QStringLiteral("dvertisement")), QStringList());
    time.advance(0.1);
    EXPECT_EQ(reader.heard().filter(QStringLiteral("dvertisement")),
              QStringList{QStringLiteral("The advertisement can be closed now")});
    time.advance(10);
    EXPECT_EQ(reader.heard().filter(QStringLiteral("dvertisement")), QStringList());
}

} // namespace velmora::test
