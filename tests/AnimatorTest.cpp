// SPDX-License-Identifier: Apache-2.0
#include "Animator.h"
#include "FadeCurtain.h"
#include "FadeEffect.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

namespace velmora::test {

namespace {

/// A white part of the host's window.
class PaintCounter : public QWidget {
public:
    using QWidget::QWidget;

    int count = 0;

protected:
    void paintEvent(QPaintEvent *) override {
        ++count;
        QPainter(this).fillRect(rect(), Qt::white);
    }
};

} // namespace

class AnimatorTest : public FreshProcess {
protected:
    AnimatorTest() {
        window.resize(200, 100);
        view = new QWidget(&window);
        window.show();
        handleEvents();
    }

    double opacity() const {
        const auto *effect = qobject_cast<FadeEffect *>(view->graphicsEffect());
        return effect ? effect->opacity() : 1;
    }

    VirtualTime time;
    QWidget window;
    QPointer<QWidget> view;
};

TEST_F(AnimatorTest, TheStateChangesAtOnceAndTheFadeFollows) {
    Animator::setHidden(view, true);
    EXPECT_TRUE(Animator::isHidden(view));
    EXPECT_TRUE(view->isVisible());
    EXPECT_TRUE(view->testAttribute(Qt::WA_TransparentForMouseEvents));
    time.advance(0.125);
    EXPECT_NEAR(opacity(), 0.5, 0.1);
    time.advance(0.2);
    EXPECT_FALSE(view->isVisible());
    EXPECT_FALSE(view->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(view->graphicsEffect(), nullptr);
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(AnimatorTest, AFadeIsReversedFromItsPresentOpacity) {
    Animator::setHidden(view, true);
    time.advance(0.1);
    const double reached = opacity();
    Animator::setHidden(view, false);
    EXPECT_FALSE(Animator::isHidden(view));
    time.advance(0.017);
    EXPECT_GT(opacity(), reached);
    EXPECT_LT(opacity(), reached + 0.2);
    time.advance(1);
    EXPECT_TRUE(view->isVisible());
    EXPECT_EQ(time.timerCount(), 0u);

    Animator::setHidden(view, true);
    Animator::setHiddenNow(view, false);
    EXPECT_TRUE(view->isVisible());
    time.advance(1);
    EXPECT_TRUE(view->isVisible());
}

TEST_F(AnimatorTest, AViewThatIsNotVisibleChangesWithoutAFade) {
    window.hide();
    Animator::setHidden(view, true);
    EXPECT_TRUE(view->isHidden());
    EXPECT_EQ(time.timerCount(), 0u);
    window.show();
    handleEvents();
    Animator::setHidden(view, false);
    window.hide();
    time.advance(0.1);
    EXPECT_FALSE(view->isHidden());
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(AnimatorTest, WhatIsBehindAFadingViewIsNotPaintedAtEachFrame) {
    PaintCounter behind(&window);
    behind.setGeometry(window.rect());
    behind.show();
    view->hide();
    view->setGeometry(window.rect());
    view->setPalette(Qt::black);
    view->setAutoFillBackground(true);
    view->raise();
    handleEvents();
    behind.count = 0;
    Animator::setHidden(view, false);
    handleEvents();
    time.advance(0.125);
    EXPECT_EQ(behind.count, 1);
    // Halfway from white to black.
    const QColor mixed = view->grab().toImage().pixelColor(50, 50);
    EXPECT_NEAR(mixed.red(), 128, 40);
    time.advance(0.2);
    handleEvents();
    EXPECT_EQ(behind.count, 1);
    EXPECT_EQ(window.grab().toImage().pixelColor(50, 50), QColor(Qt::black));
    EXPECT_FALSE(view->testAttribute(Qt::WA_OpaquePaintEvent));

    // Its pictures do not fit another size.
    Animator::setHidden(view, true);
    handleEvents();
    time.advance(0.1);
    view->resize(150, 100);
    handleEvents();
    EXPECT_TRUE(view->isHidden());
    EXPECT_EQ(time.timerCount(), 0u);
}

// As a banner does whose picture is decoded while it fades in.
TEST_F(AnimatorTest, ASmallViewThatChangesDuringItsFadeIsDrawnAnew) {
    view->setGeometry(0, 60, 200, 40);
    view->hide();
    auto *picture = new PaintCounter(view);
    picture->setGeometry(view->rect());
    picture->hide();
    handleEvents();
    const QColor before = window.grab().toImage().pixelColor(100, 80);
    Animator::setHidden(view, false);
    time.advance(0.05);
    EXPECT_EQ(window.grab().toImage().pixelColor(100, 80), before);
    picture->show();
    time.advance(0.1);
    EXPECT_GT(window.grab().toImage().pixelColor(100, 80).lightness(), before.lightness());
}

// As a video does, which Qt takes for all that there is to paint.
TEST_F(AnimatorTest, AViewIsSeenToFadeWhereAPartOfItIsOpaque) {
    view->setGeometry(window.rect());
    auto *video = new PaintCounter(view);
    video->setGeometry(view->rect());
    video->setAttribute(Qt::WA_OpaquePaintEvent);
    video->show();
    QPalette black;
    black.setColor(QPalette::Window, Qt::black);
    window.setPalette(black);
    handleEvents();
    const int paints = video->count;
    Animator::setHidden(view, true);
    time.advance(0.125);
    EXPECT_GT(video->count, paints);
    EXPECT_NEAR(window.grab().toImage().pixelColor(50, 50).lightness(), 128, 40);
    time.advance(0.2);
    EXPECT_TRUE(video->testAttribute(Qt::WA_OpaquePaintEvent));
}

// As a splash screen does whose images are decoded while it fades in.
TEST_F(AnimatorTest, ALargeViewIsDrawnAnewWhenItSaysSo) {
    view->setGeometry(window.rect());
    view->hide();
    auto *picture = new PaintCounter(view);
    picture->setGeometry(view->rect());
    picture->hide();
    Animator::setHidden(view, false);
    time.advance(0.05);
    const QColor before = window.grab().toImage().pixelColor(50, 50);
    picture->show();
    Animator::contentChanged(picture);
    time.advance(0.1);
    EXPECT_GT(window.grab().toImage().pixelColor(50, 50).lightness(), before.lightness());
}

TEST_F(AnimatorTest, ALargeViewStaysAsItIsUntilThereAreImagesToFadeItWith) {
    window.resize(1600, 900);
    view->setGeometry(window.rect());
    view->setPalette(Qt::black);
    view->setAutoFillBackground(true);
    handleEvents();
    const auto seen = [this] {
        const QPixmap screen = window.screen()->grabWindow(window.winId());
        return screen.toImage().pixelColor(800, 450).lightness();
    };
    const auto hasImages = [this] {
        const auto *effect = qobject_cast<FadeEffect *>(view->graphicsEffect());
        return effect && !effect->picture().isNull();
    };
    ASSERT_EQ(seen(), 0);
    Animator::setHidden(view, true);
    handleEvents();
    if (!hasImages()) {
        EXPECT_EQ(seen(), 0);
    }
    ASSERT_TRUE(eventually(hasImages));
    EXPECT_GT(seen(), 0);
    time.advance(0.5);
    EXPECT_TRUE(view->isHidden());
    const int empty = seen();

    Animator::setHidden(view, false);
    handleEvents();
    if (!hasImages()) {
        EXPECT_EQ(seen(), empty);
    }
    ASSERT_TRUE(eventually(hasImages));
    time.advance(0.125);
    EXPECT_LT(seen(), empty);
    // The images are used again for what the view shows now.
    const int before = seen();
    view->setPalette(Qt::white);
    Animator::contentChanged(view);
    time.advance(0.05);
    EXPECT_GT(seen(), before);
    time.advance(0.5);
    EXPECT_EQ(seen(), 255);

    // The fade may end before there are images.
    Animator::setHidden(view, true);
    Animator::setHiddenNow(view, true);
    handleEvents();
    EXPECT_TRUE(eventually([&] { return seen() == empty; }));
}

TEST_F(AnimatorTest, NobodySeesAViewFadeOutBehindOneThatFadesIn) {
    view->setGeometry(window.rect());
    auto *above = new QWidget(&window);
    above->setGeometry(window.rect());
    above->hide();
    auto *small = new QWidget(&window);
    small->setGeometry(0, 0, 50, 50);
    small->show();
    Animator::setHidden(view, true);
    Animator::setHidden(small, true);
    Animator::setHidden(above, false);
    EXPECT_FALSE(view->graphicsEffect());
    EXPECT_TRUE(small->graphicsEffect()) << "it is above both";
    time.advance(0.1);
    EXPECT_FALSE(view->graphicsEffect());
    // It is to be seen when the other one goes again.
    Animator::setHidden(above, true);
    EXPECT_TRUE(view->graphicsEffect());
    EXPECT_GT(opacity(), 0.9);
    time.advance(0.5);
    EXPECT_TRUE(view->isHidden());
    EXPECT_TRUE(above->isHidden());

    Animator::setHiddenNow(view, false);
    Animator::setHidden(view, true);
    Animator::setHidden(above, false);
    ASSERT_FALSE(view->graphicsEffect());
    Animator::setHiddenNow(above, true);
    EXPECT_TRUE(view->graphicsEffect());
    time.advance(0.5);

    // One that was seen half faded would jump.
    Animator::setHiddenNow(view, false);
    Animator::setHidden(view, true);
    time.advance(0.1);
    Animator::setHidden(above, false);
    EXPECT_TRUE(view->graphicsEffect() || view->findChild<FadeCurtain *>());
    time.advance(0.5);

    // In another window.
    QWidget dialog(&window, Qt::Dialog);
    dialog.resize(window.size());
    dialog.show();
    auto *inDialog = new QWidget(&dialog);
    inDialog->resize(window.size());
    inDialog->hide();
    above->hide();
    Animator::setHiddenNow(view, false);
    Animator::setHidden(view, true);
    Animator::setHidden(inDialog, false);
    EXPECT_TRUE(view->graphicsEffect());
}

TEST_F(AnimatorTest, RemoveDestroysTheViewAfterItsFadeAndADestroyedViewEndsItsTimer) {
    Animator::remove(view);
    ASSERT_TRUE(view);
    time.advance(1);
    EXPECT_FALSE(view);
    EXPECT_EQ(time.timerCount(), 0u);

    auto *second = new QWidget(&window);
    second->show();
    Animator::setHidden(second, true);
    EXPECT_EQ(time.timerCount(), 1u);
    delete second;
    EXPECT_EQ(time.timerCount(), 0u);
}

} // namespace velmora::test
