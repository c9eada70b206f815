#include "controls/BannerImageView.h"
#include "controls/CloseButtonCell.h"
#include "controls/ColoredButtonCell.h"
#include "platform/InterfaceLoader.h"
#include "platform/SystemVersion.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtGui/QPainter>
#include <QtWidgets/QScrollArea>

namespace velmora::test {

namespace {

QColor pixel(QWidget &widget, QPoint point) {
    const QImage image = widget.grab().toImage();
    return image.pixelColor(point * image.devicePixelRatio());
}

} // namespace

class BannerImageViewTest : public FreshProcess {
protected:
    BannerImageViewTest() {
        putInCaches(QStringLiteral("fast.gif"), gif({Qt::red, Qt::green, Qt::blue}, {182, 22}, 2));
        window.resize(300, 200);
        view = new BannerImageView(&window);
        view->setGeometry(10, 10, 182, 22);
        path = cachesFolder() + QStringLiteral("/fast.gif");
    }

    /// Whether frames are being decoded.
    bool decodes() {
        const int before = view->decodedFrames();
        return eventually([&] { return view->decodedFrames() > before + 3; }, 400);
    }

    QWidget window;
    BannerImageView *view;
    QString path;
};

TEST_F(BannerImageViewTest, DecodesOnlyWhileItCanBeSeen) {
    view->setImage(path);
    EXPECT_FALSE(decodes());
    EXPECT_EQ(view->decodedFrames(), 0);
    window.show();
    EXPECT_TRUE(decodes());

    window.hide();
    quietly(80);
    EXPECT_FALSE(decodes());
    window.show();
    EXPECT_TRUE(decodes());

    view->hide();
    quietly(80);
    EXPECT_FALSE(decodes());
    view->show();
    EXPECT_TRUE(decodes());

    // An opaque widget of the host's in front of it.
    QWidget cover(&window);
    cover.setAttribute(Qt::WA_OpaquePaintEvent);
    cover.setGeometry(window.rect());
    cover.show();
    quietly(80);
    EXPECT_FALSE(decodes());
    cover.hide();
    EXPECT_TRUE(decodes());
}

TEST_F(BannerImageViewTest, ScrolledAwayItRests) {
    QScrollArea area;
    area.resize(200, 100);
    auto *page = new QWidget;
    page->resize(180, 2000);
    view->setParent(page);
    view->setGeometry(0, 1500, 180, 22);
    area.setWidget(page);
    view->setImage(path);
    area.show();
    quietly(80);
    EXPECT_FALSE(decodes());
    area.ensureVisible(0, 1510);
    EXPECT_TRUE(decodes());
}

TEST_F(BannerImageViewTest, UnusablePicturesAreNoImage) {
    const QList<QByteArray> pictures{"", "<html>", "GIF89a", gifHeaderOnly({30000, 30000}),
                                     gifHeaderOnly({0, 90})};
    for (const QByteArray &picture : pictures) {
        putInCaches(QStringLiteral("bad.gif"), picture);
        view->setImage(cachesFolder() + QStringLiteral("/bad.gif"));
        EXPECT_FALSE(view->hasImage()) << picture.left(10).constData();
    }
    view->setImage({});
    EXPECT_FALSE(view->hasImage());
    view->setImage(cachesFolder());
    EXPECT_FALSE(view->hasImage());
}

TEST_F(BannerImageViewTest, DamagedAndOddPicturesDoNoHarm) {
    window.show();
    const QByteArray whole = gif({Qt::red, Qt::green, Qt::blue});
    QList<QByteArray> pictures{gif({Qt::red}, {1, 1}), gif({Qt::red, Qt::blue}, {20, 20}, 0),
                               gif({Qt::red}, {4096, 1})};
    for (qsizetype length = 20; length < whole.size(); length += whole.size() / 23)
        pictures.append(whole.left(length));
    for (const QByteArray &picture : pictures) {
        putInCaches(QStringLiteral("odd.gif"), picture);
        view->setImage(cachesFolder() + QStringLiteral("/odd.gif"));
        quietly(15);
    }
}

TEST_F(BannerImageViewTest, CornersAreRoundedByHeight) {
    EXPECT_EQ(BannerImageView::cornerRadius(30), 2.0);
    EXPECT_EQ(BannerImageView::cornerRadius(39.9), 2.0);
    EXPECT_EQ(BannerImageView::cornerRadius(40), 4.0);
    putInCaches(QStringLiteral("red.gif"), gif({Qt::red}));
    view->setImage(cachesFolder() + QStringLiteral("/red.gif"));
    view->resize(182, 90);
    window.show();
    ASSERT_TRUE(eventually([&] { return view->decodedFrames() > 0; }));
    const QColor behind = window.palette().color(QPalette::Window);
    EXPECT_EQ(pixel(window, {10, 10}), behind);
    EXPECT_EQ(pixel(window, {191, 99}), behind);
    EXPECT_EQ(pixel(window, {15, 15}), QColor(Qt::red));
    EXPECT_EQ(pixel(window, {14, 10}), QColor(Qt::red));
}

class ButtonsTest : public FreshProcess {};

TEST_F(ButtonsTest, ColoredButtonsTakeTheColoursOfTheirState) {
    ColoredButtonCell button;
    button.resize(60, 30);
    button.setProperty("defaultColor", QColor(Qt::blue));
    button.setProperty("highlightedColor", QColor(Qt::green));
    button.setProperty("disabledColor", QColor(Qt::gray));
    EXPECT_EQ(pixel(button, {1, 1}), QColor(Qt::blue));
    button.setDown(true);
    EXPECT_EQ(pixel(button, {1, 1}), QColor(Qt::green));
    button.setEnabled(false);
    EXPECT_EQ(pixel(button, {1, 1}), QColor(Qt::gray));
    button.setEnabled(true);
    button.setDown(false);
    button.setProperty("circle", true);
    EXPECT_NE(pixel(button, {1, 1}), QColor(Qt::blue));
    EXPECT_EQ(pixel(button, {30, 15}), QColor(Qt::blue));

    button.setText(QStringLiteral("███"));
    button.setProperty("titleDefaultColor", QColor(Qt::white));
    EXPECT_EQ(pixel(button, {30, 15}), QColor(Qt::white));
    button.setProperty("defaultColor", QColor());
    EXPECT_NE(pixel(button, {10, 15}), QColor(Qt::blue));
}

TEST_F(ButtonsTest, TheCloseButtonDrawsItsImageInACircleLoweredOnOlderSystems) {
    QPixmap white(64, 64);
    white.fill(Qt::white);
    CloseButtonCell button;
    button.setIcon(QIcon(white));
    button.resize(24, 24);
    const QColor corner = pixel(button, {2, 2});
    EXPECT_NE(corner, QColor(Qt::white));
    EXPECT_GT(pixel(button, {12, 12}).lightness(), corner.lightness());

    for (const auto &[minor, lowered] :
         {std::pair{0, true}, {10, true}, {11, false}, {15, false}}) {
        SystemVersion::setCurrent(SystemVersion{14, minor});
        EXPECT_EQ(CloseButtonCell::imageFrame({0, 0, 10, 10}).y(), lowered ? 1 : 0) << minor;
    }
    SystemVersion::setCurrent({});
}

TEST_F(ButtonsTest, InterfaceResourcesSayWhatIsMissing) {
    Velmora::activateDebugMode();
    EXPECT_EQ(InterfaceLoader::load(QStringLiteral("None")), nullptr);
    EXPECT_TRUE(hasLogged(QStringLiteral("interface resource None is missing")));
    const QStringList paths = QCoreApplication::libraryPaths();
    InterfaceLoader::registerClass<BannerImageView>(QStringLiteral("BannerImageView"));
    InterfaceLoader::registerClass<CloseButtonCell>(QStringLiteral("CloseButtonCell"));
    const std::unique_ptr<QWidget> root(InterfaceLoader::load(QStringLiteral("BannerController")));
    ASSERT_TRUE(root);
    EXPECT_EQ(QCoreApplication::libraryPaths(), paths);
    EXPECT_EQ(InterfaceLoader::outlet<QWidget>(root.get(), QStringLiteral("nobody")), nullptr);
    EXPECT_TRUE(hasLogged(QStringLiteral("interface resource bannerView has no nobody")));
}

} // namespace velmora::test
