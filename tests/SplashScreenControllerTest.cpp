// SPDX-License-Identifier: Apache-2.0
#include "AdBannerController.h"
#include "ColoredView.h"
#include "SplashScreenLayout.h"
#include "SplashScreenStyle.h"
#include "Window.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <Velmora/StandardNames.h>

#include <QtCore/QDir>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>

#include <array>
#include <thread>

namespace velmora::test {

class SplashScreenControllerTest : public RegisteredHost {
protected:
    SplashScreenController &splash() { return controller(window); }
    const SplashScreenOutlets &outlets() { return splash().outlets(); }

    // The names of the visible elements, sorted.
    std::string visible() {
        QStringList names;
        for (const QWidget *element :
             splash().view()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
            if (isShown(element) && element != outlets().urlButton)
                names.append(element->objectName());
        }
        names.sort();
        return names.join(QLatin1Char(' ')).toStdString();
    }
};

/// With the application's font at several sizes, points; 0 for the usual one.
class SplashScreenFitTest : public SplashScreenControllerTest,
                            public ::testing::WithParamInterface<int> {
protected:
    ~SplashScreenFitTest() override { QApplication::setFont(m_usual); }

    void useFontSize(int points) {
        QFont font = m_usual;
        font.setPointSize(points);
        QApplication::setFont(font);
        handleEvents();
    }

    const QFont m_usual = QApplication::font();
};

TEST_F(SplashScreenControllerTest, EachViewStateShowsItsOwnElements) {
    EXPECT_TRUE(splash().overlay()->isHidden());
    splash().showStartScreen();
    const char *const start = "bgImage iconImageView lablesView removeAdsButton";
    EXPECT_EQ(visible(), start);
    EXPECT_FALSE(splash().overlay()->isHidden());
    for (const qint64 unknown : {0, 4, -1}) {
        splash().swapViewForState(unknown);
        EXPECT_EQ(visible(), start);
    }

    splash().swapViewForState(SplashScreenController::SplashScreenViewStateVideo);
    EXPECT_EQ(visible(), "adMark removeAdsImageButton soundButton splashScreenPlayerView "
                         "timeVideoLabel videoProgressView");
    splash().showEndScreen();
    EXPECT_EQ(visible(), "bgImage closeButton iconImageView removeAdsButton");
    splash().setInterstitialUrl(QUrl(QStringLiteral("file:///missing.png")));
    splash().showEndScreen();
    EXPECT_EQ(visible(), "adMark closeButton interstitialImage");

    splash().showStartVideoWithoutStartScreen();
    EXPECT_EQ(visible(), "");
    EXPECT_TRUE(splash().withouSplash());
    splash().showEndScreen();
    EXPECT_FALSE(splash().withouSplash());
    splash().hide();
    EXPECT_TRUE(splash().overlay()->isHidden());
}

TEST_F(SplashScreenControllerTest, ElementsThatTheHostHidesStayHidden) {
    Velmora::setSplashScreenHiddenIconBeforeVideo(true);
    Velmora::setSplashScreenHiddenButtonAfterVideo(true);
    Velmora::setSplashScreenHiddenBackgroundImageAfterVideo(true);
    splash().showStartScreen();
    EXPECT_EQ(visible(), "bgImage lablesView removeAdsButton");
    splash().showEndScreen();
    EXPECT_EQ(visible(), "closeButton iconImageView");
    Velmora::setSplashScreenHiddenIcon(true);
    Velmora::setSplashScreenHiddenBackgroundImage(true);
    Velmora::setSplashScreenHiddenButtonBeforeVideo(true);
    splash().showEndScreen();
    EXPECT_EQ(visible(), "closeButton");
    splash().showStartScreen();
    EXPECT_EQ(visible(), "lablesView");
}

TEST_F(SplashScreenControllerTest, TheUserCannotResizeACoveredWindow) {
    Window *facts = Window::of(window);
    EXPECT_TRUE(facts->styleMask() & Window::Resizable);
    facts->setCollectionBehavior(0x104);
    splash().showStartScreen();
    EXPECT_FALSE(facts->styleMask() & Window::Resizable);
    EXPECT_EQ(facts->collectionBehavior(), 0x100u);
    splash().hide();
    EXPECT_TRUE(facts->styleMask() & Window::Resizable);
    EXPECT_EQ(facts->collectionBehavior(), 0x80u) << "not what it was before";
}

TEST_F(SplashScreenControllerTest, AWindowOfAFixedSizeCanBeMadeResizableAfterwards) {
    const auto free = [this] {
        window->setMinimumSize(0, 0);
        window->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        handleEvents();
    };
    const auto isFree = [this] {
        const QWindow *native = window->windowHandle();
        return native->minimumSize().isEmpty() && native->maximumWidth() > 10'000;
    };
    window->setFixedSize(300, 200);
    splash().showStartScreen();
    splash().hide();
    EXPECT_FALSE(Window::of(window)->isResizable());
    EXPECT_EQ(window->size(), QSize(300, 200));
    free();
    EXPECT_TRUE(isFree()) << "fixed before";

    splash().showStartScreen();
    window->setFixedSize(320, 240);
    handleEvents();
    splash().hide();
    EXPECT_FALSE(Window::of(window)->isResizable());
    free();
    EXPECT_TRUE(isFree()) << "fixed meanwhile";

    window->setFixedSize(300, 200);
    splash().showStartScreen();
    free();
    EXPECT_FALSE(isFree()) << "freed while it is covered";
    splash().hide();
    handleEvents();
    EXPECT_TRUE(isFree());
    EXPECT_TRUE(Window::of(window)->isResizable());
}

TEST_F(SplashScreenControllerTest, AMainWindowIsCoveredBelowItsMenuBar) {
    auto *main = new QMainWindow;
    main->setAttribute(Qt::WA_DeleteOnClose);
    auto *menus = new QMenuBar;
    menus->setNativeMenuBar(false);
    menus->addMenu(QStringLiteral("File"));
    main->setMenuBar(menus);
    main->resize(640, 480);
    main->show();
    Velmora::addSplashScreenToWindow(main);
    controller(main).showStartScreen();
    handleEvents();
    const auto below = [&](int top) { return main->rect().adjusted(0, top, 0, 0); };
    const Overlay *overlay = controller(main).overlay();
    ASSERT_GT(menus->height(), 0);
    EXPECT_EQ(overlay->frame(), below(menus->height()));
    main->resize(500, 400);
    EXPECT_EQ(overlay->frame(), below(menus->height()));
    menus->setFixedHeight(60);
    handleEvents();
    EXPECT_EQ(overlay->frame(), below(60));
    controller(main).setTopInset(25);
    EXPECT_EQ(overlay->frame(), below(85));
    menus->hide();
    handleEvents();
    EXPECT_EQ(overlay->frame(), below(25));
    delete main->menuBar();
    main->setMenuBar(nullptr);
    handleEvents();
    EXPECT_EQ(overlay->frame(), below(25));
    EXPECT_EQ(main->childAt(main->rect().center())->window(), main);
    delete main;
}

TEST_F(SplashScreenControllerTest, TheIconIsTheApplicationsElseTheWindowsElseTakesNoRoom) {
    QPixmap square(64, 64);
    square.fill(Qt::red);
    splash().showStartScreen();
    handleEvents();
    EXPECT_TRUE(outlets().iconImageView->image().isNull());
    const int above = outlets().lablesView->y();
    const int below = outlets().removeAdsButton->y() - outlets().lablesView->geometry().bottom();
    EXPECT_NEAR(above, below, 0.1 * window->height()) << "no room is kept for an icon";

    QWidget *iconic = openWindow("iconic");
    iconic->setWindowIcon(square);
    Velmora::addSplashScreenToWindow(iconic);
    handleEvents();
    const auto shown = [](QWidget *of) {
        return controller(of).outlets().iconImageView->image().pixelColor(32, 32);
    };
    EXPECT_EQ(shown(iconic), QColor(Qt::red));
    square.fill(Qt::green);
    QApplication::setWindowIcon(square);
    EXPECT_EQ(shown(openRegistered("later")), QColor(Qt::green));
    QApplication::setWindowIcon({});
    Velmora::setSplashScreenIcon(square.toImage());
    EXPECT_GT(outlets().lablesView->y(), above) << "there is room for an icon that is set later";
}

TEST_F(SplashScreenControllerTest, AScreenMayBeShownFromAnyThread) {
    std::thread([this] { splash().showStartScreen(); }).join();
    EXPECT_TRUE(splash().overlay()->isHidden());
    handleEvents();
    EXPECT_FALSE(splash().overlay()->isHidden());
}

TEST_F(SplashScreenControllerTest, AppearanceAppliesToPresentAndLaterSplashScreens) {
    const QColor dark(20, 30, 40);
    Velmora::setSplashScreenBackgroundColor(dark);
    Velmora::setSplashScreenTextColor(Qt::cyan);
    Velmora::setSplashScreenTimerBorderWidth(3, 5.5);
    Velmora::setSplashScreenTimerBorderColor(Qt::red, Qt::green);
    Velmora::setSplashScreenBackgroundImageScaling(1);
    Velmora::setSplashScreenTopInset(12.7);
    Velmora::setSplashScreenTextColor(QColor());
    Velmora::setSplashScreenIcon(QImage());

    const auto &options = presenter().splashScreenOptions();
    EXPECT_EQ(options.value(QStringLiteral("backgoundImageScaling")).toUInt(), 1u);
    EXPECT_FALSE(options.contains(QStringLiteral("backgroundImageScaling")));

    QWidget *later = openRegistered("later");
    EXPECT_EQ(splash().topInset(), 12.7);
    EXPECT_EQ(controller(later).topInset(), 12);
    EXPECT_EQ(controller(later).overlay()->frame(), QRect(0, 12, 640, 468));
    for (QWidget *each : {window, later}) {
        const SplashScreenOutlets &tree = controller(each).outlets();
        EXPECT_EQ(qobject_cast<ColoredView *>(controller(each).view())->color(), dark);
        EXPECT_EQ(tree.lablesView->textCommentFieldSecond()->textColor(), QColor(Qt::cyan));
        EXPECT_EQ(tree.bgImage->imageScaling(), 1u);
        for (const TimeProgressView *ring :
             {tree.lablesView->timeProgressView(), tree.videoProgressView.data()}) {
            EXPECT_EQ(ring->widthBorder(), 3);
            EXPECT_EQ(ring->widthProgress(), 5.5);
            EXPECT_EQ(ring->progressColor(), QColor(Qt::green));
            EXPECT_EQ(ring->backgroundProgressColor(), QColor(Qt::red));
        }
    }
}

// With VELMORA_WRITE_DOCS set, the page is written instead of compared.
TEST_F(SplashScreenControllerTest, TheDocumentationOfTheOptionsIsUpToDate) {
    QFile page(QStringLiteral(VELMORA_SOURCE_DIR "/docs/splash-options.md"));
    const bool writes = qEnvironmentVariableIsSet("VELMORA_WRITE_DOCS");
    ASSERT_TRUE(page.open(writes ? QIODevice::ReadWrite : QIODevice::ReadOnly));
    const QByteArray head = page.readAll().split('|').constFirst();
    const QByteArray wanted = head + SplashScreenStyle::documentation().toUtf8();
    page.seek(0);
    if (writes)
        EXPECT_TRUE(page.resize(0) && page.write(wanted) == wanted.size());
    else
        EXPECT_EQ(page.readAll(), wanted);
}

TEST_P(SplashScreenFitTest, EverythingFitsAtEverySizeInEveryLanguage) {
    if (GetParam() > 0)
        useFontSize(GetParam());
    const auto tables =
        QDir(QStringLiteral(":/velmora")).entryList({QStringLiteral("*.lproj")}, QDir::Dirs);
    ASSERT_EQ(tables.size(), 10);
    QImage icon(64, 64, QImage::Format_RGB32);
    icon.fill(Qt::red);
    Velmora::setSplashScreenIcon(icon);
    useUnplayableVideo();
    Velmora::forceShow();
    time.advance(1);
    for (const QString &language : tables) {
        const auto texts = StandardNames::getInfoFromURL(
            QUrl(QStringLiteral("qrc:/velmora/%1/Localizable.strings").arg(language)));
        const auto text = [&](const char *key) {
            EXPECT_FALSE(texts.value(QLatin1String(key)).isEmpty()) << qPrintable(language) << key;
            return texts.value(QLatin1String(key));
        };
        auto *first = outlets().lablesView->textCommentFieldFirst();
        auto *second = outlets().lablesView->textCommentFieldSecond();
        first->setText(text("ApplicationWillBeLaunchedTextFirst"));
        second->setText(text("ApplicationWillBeLaunchedTextSecond"));
        const QString removeAds = text("RemoveAdsText");
        outlets().removeAdsButton->setText(removeAds);
        outlets().removeAdsImageButton->setText(
            QString(removeAds).replace(QLatin1Char(' '), QLatin1Char('\n')).toUpper());
        for (const QSize &size : {QSize(320, 240), {480, 320}, {640, 480}, {1600, 1000}}) {
            SCOPED_TRACE(::testing::Message() << qPrintable(language) << " " << size.width());
            window->resize(size);
            handleEvents();
            outlets().lablesView->parentWidget()->findChild<SplashScreenLayout *>()->apply();
            const QRect all = splash().view()->rect();
            ASSERT_EQ(all.size(), size);
            for (const TextField *countdown :
                 {outlets().timeLabel(), outlets().timeVideoLabel.data()})
                EXPECT_LT(countdown->sizeHint().height(), countdown->height());
            const QRect labels = outlets().lablesView->geometry();
            EXPECT_EQ(labels.width(), size.width());
            EXPECT_GE(first->height(), first->heightForWidth(first->width()));
            EXPECT_GE(second->height(), second->heightForWidth(second->width()));
            EXPECT_GE(second->y(), first->geometry().bottom());
            for (const TextField *line : {first, second})
                EXPECT_LE(line->sizeForWidth(line->width()).width(), line->width());
            EXPECT_LE(outlets().iconImageView->geometry().bottom(), labels.top());
            EXPECT_GE(outlets().iconImageView->width(), 24);
            EXPECT_LE(labels.bottom(), outlets().removeAdsButton->y());
            const QWidget *const controls[] = {
                outlets().removeAdsButton, outlets().removeAdsImageButton, outlets().closeButton,
                outlets().soundButton,     outlets().videoProgressView,    outlets().iconImageView};
            for (const QWidget *inside : controls)
                EXPECT_TRUE(all.contains(inside->geometry())) << qPrintable(inside->objectName());
            EXPECT_GE(outlets().closeButton->width(), 24);
            EXPECT_LT(outlets().soundButton->geometry().right(),
                      outlets().removeAdsImageButton->x());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Points, SplashScreenFitTest, ::testing::Values(0, 6, 18));

TEST_F(SplashScreenFitTest, TextsFollowTheFontOfTheApplication) {
    Velmora::forceShow();
    time.advance(1);
    window->resize(900, 700);
    handleEvents();
    const auto *line = outlets().lablesView->textCommentFieldSecond();
    const auto sizes = [&] {
        handleEvents();
        return std::array{line->sizeHint().height(), outlets().removeAdsButton->height(),
                          outlets().timeLabel()->sizeHint().height()};
    };
    const auto usual = sizes();
    useFontSize(18);
    const auto large = sizes();
    EXPECT_GT(large[0], 1.4 * usual[0]);
    EXPECT_GT(large[1], 1.4 * usual[1]);
    EXPECT_EQ(large[2], usual[2]) << "the ring does not grow";
    QApplication::setFont(m_usual);
    EXPECT_EQ(sizes(), usual);
}

TEST_F(SplashScreenControllerTest, TextsCanBeReadByAssistiveTechnology) {
    Velmora::forceShow();
    for (const TextField *field :
         {outlets().lablesView->textCommentFieldFirst(), outlets().timeLabel()}) {
        QAccessibleInterface *found =
            QAccessible::queryAccessibleInterface(const_cast<TextField *>(field));
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(found->role(), QAccessible::StaticText);
        EXPECT_FALSE(field->text().isEmpty());
        EXPECT_EQ(found->text(QAccessible::Name), field->text());
    }
}

TEST_F(SplashScreenControllerTest, TheKeyboardReachesEveryControlAndNothingBelow) {
    auto *below = new QPushButton(QStringLiteral("host"), window);
    below->show();
    below->setFocus();
    useUnplayableVideo();
    Velmora::forceShow();
    time.advance(6);
    handleEvents();
    QStringList reached;
    for (int press = 0; press < 8; ++press) {
        QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
        handleEvents();
        ASSERT_NE(window->focusWidget(), below);
        reached.append(window->focusWidget()->objectName());
        EXPECT_FALSE(window->focusWidget()->accessibleName().isEmpty());
    }
    for (const char *name : {"soundButton", "removeAdsImageButton", "urlButton"})
        EXPECT_TRUE(reached.contains(QLatin1String(name))) << name;
    EXPECT_FALSE(reached.contains(QLatin1String("closeButton")));
    QTest::keyClick(window->windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(Velmora::isShowSplashScreen()) << "there is no close button yet";
    outlets().soundButton->setFocus();
    QTest::keyClick(window->windowHandle(), Qt::Key_Return);
    EXPECT_TRUE(presenter().isMuted());

    time.advance(5);
    heard();
    QTest::keyClick(window->windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    time.advance(1);
    EXPECT_EQ(window->focusWidget(), below);
    EXPECT_EQ(heard(), (QStringList{DidClose}));
}

TEST_F(SplashScreenControllerTest, ABannerThatComesLaterLiesBelow) {
    Velmora::forceShow();
    time.advance(1);
    Velmora::addBannerForWindow(window);
    time.advance(20);
    ASSERT_NE(Velmora::BControllFromWindow(window)->viewIfLoaded(), nullptr);
    const QWidget *hit = window->childAt(window->width() / 2, window->height() - 20);
    EXPECT_TRUE(splash().view() == hit || splash().view()->isAncestorOf(hit));
}

} // namespace velmora::test
