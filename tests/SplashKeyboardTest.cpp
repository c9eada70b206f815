// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCompleter>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>

namespace velmora::test {

/// A splash screen by keyboard, over an editor that is the whole window.
class SplashKeyboardTest : public SplashHost {
protected:
    SplashKeyboardTest() {
        editor->resize(640, 480);
        editor->show();
        activate(editor.get());
        Velmora::addSplashScreenToWindow(editor.get());
        editor->setFocus();
        useUnplayableVideo();
        Velmora::forceShow();
        handleEvents();
    }
    ~SplashKeyboardTest() override {
        editor.reset();
        handleEvents();
    }
    SplashScreenController &splash() { return controller(editor.get()); }
    const SplashScreenOutlets &outlets() { return splash().outlets(); }
    std::string focus() const {
        return editor->window()->focusWidget()->objectName().toStdString();
    }
    void press(Qt::Key key) {
        QTest::keyClick(editor->windowHandle(), key);
        handleEvents();
    }

    std::unique_ptr<QPlainTextEdit> editor =
        std::make_unique<QPlainTextEdit>(QStringLiteral("draft"));
};

TEST_F(SplashKeyboardTest, EscapeClosesOnceTheButtonIsThereAndTheEditorGetsNoKey) {
    const auto typeEverything = [this] {
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_Delete, Qt::Key_Escape})
            press(key);
        QTest::keyClick(editor->windowHandle(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(editor->windowHandle(), Qt::Key_Backspace);
    };
    typeEverything();
    time.advance(6);
    typeEverything();
    EXPECT_TRUE(Velmora::isShowSplashScreen());
    time.advance(5);
    press(Qt::Key_Escape);
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    EXPECT_EQ(editor->toPlainText(), QStringLiteral("draft"));
    time.advance(1);
    EXPECT_TRUE(editor->hasFocus());
    press(Qt::Key_X);
    EXPECT_EQ(editor->toPlainText(), QStringLiteral("xdraft"));
}

TEST_F(SplashKeyboardTest, TheKeyThatClosesIsNotTypedIntoTheEditorWhileItIsHeld) {
    const auto send = [this](QEvent::Type type, bool isRepetition) {
        QKeyEvent event(type, Qt::Key_Return, {}, QStringLiteral("\r"), isRepetition);
        QCoreApplication::sendEvent(editor->windowHandle(), &event);
    };
    time.advance(11);
    press(Qt::Key_Tab);
    send(QEvent::KeyPress, false);
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    time.advance(1);
    for (int i = 0; i < 3; ++i) {
        send(QEvent::KeyRelease, true);
        send(QEvent::KeyPress, true);
    }
    send(QEvent::KeyRelease, false);
    EXPECT_EQ(editor->toPlainText(), QStringLiteral("draft"));
    send(QEvent::KeyPress, false);
    send(QEvent::KeyPress, true);
    EXPECT_EQ(editor->toPlainText(), QStringLiteral("\n\ndraft"));
}

TEST_F(SplashKeyboardTest, CompletionsDoNotWriteIntoACoveredLineEdit) {
    Velmora::SSPresenter().didClickClose();
    time.advance(1);
    QLineEdit line(editor.get());
    QCompleter completer(QStringList{QStringLiteral("abacus")});
    line.setCompleter(&completer);
    line.show();
    line.setFocus();
    press(Qt::Key_A);
    ASSERT_TRUE(completer.popup()->isVisible());
    Velmora::forceShow();
    handleEvents();
    EXPECT_FALSE(completer.popup()->isVisible());
    press(Qt::Key_B);
    EXPECT_EQ(line.text(), QStringLiteral("a"));
}

TEST_F(SplashKeyboardTest, TheFirstStopIsTheCloseButtonOnceItIsThereElseSound) {
    splash().showVideo();
    press(Qt::Key_Tab);
    EXPECT_EQ(focus(), "soundButton");
    splash().view()->setFocus();
    splash().showEndScreen();
    press(Qt::Key_Tab);
    EXPECT_EQ(focus(), "closeButton");
}

TEST_F(SplashKeyboardTest, TheFocusOfWhatIsHiddenGoesToTheCloseButtonElseSoundAndNeverToTheAd) {
    splash().showVideo();
    outlets().removeAdsImageButton->setFocus();
    outlets().removeAdsImageButton->hide();
    EXPECT_EQ(focus(), "soundButton");
    outlets().soundButton->hide();
    EXPECT_EQ(focus(), "splashScreenView");

    splash().showVideo();
    outlets().soundButton->setFocus();
    splash().didVideoEnded();
    splash().showEndScreen();
    time.advance(0.5);
    ASSERT_FALSE(outlets().soundButton->isVisible());
    EXPECT_EQ(focus(), "closeButton");

    // The link that has the focus ends with the ad.
    outlets().urlButton->setFocus();
    splash().showStartScreen();
    handleEvents();
    EXPECT_EQ(focus(), "splashScreenView");
}

} // namespace velmora::test
