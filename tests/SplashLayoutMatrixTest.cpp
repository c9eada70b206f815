// SPDX-License-Identifier: Apache-2.0
#include "Animator.h"
#include "ColoredView.h"
#include "SplashScreenInterface.h"
#include "SplashScreenLayout.h"
#include "SplashScreenVisibility.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <Velmora/StandardNames.h>

#include <QtCore/QDir>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <memory>
#include <vector>

namespace velmora::test {

namespace {

using Phase = SplashScreenVisibility::Phase;

struct View {
    const char *name;
    Phase phase;
    bool hasStill;
};

constexpr View views[] = {
    {"start", Phase::Start, false},
    {"video", Phase::Video, false},
    {"video with close button", Phase::VideoWithCloseButton, false},
    {"end", Phase::End, false},
    {"still", Phase::End, true},
};

QStringList languages() {
    return QDir(QStringLiteral(":/velmora")).entryList({QStringLiteral("*.lproj")}, QDir::Dirs);
}

} // namespace

/// The view of a splash screen in windows of all sizes, in all languages, at every phase. Only
/// geometry is looked at, so that thousands of cases take seconds. With VELMORA_CONTACT_SHEET set
/// to a file, a picture of some of them is written there.
class SplashLayoutMatrixTest : public FreshProcess {
protected:
    SplashLayoutMatrixTest() {
        SplashScreenInterface::prepare(root.get(), outlets);
        layout = new SplashScreenLayout(root.get(), outlets);
        QImage icon(64, 64, QImage::Format_RGB32);
        icon.fill(QColor(0x3a, 0x2b, 0xc4));
        outlets.iconImageView->setImage(icon);
        root->setAttribute(Qt::WA_DontShowOnScreen);
        root->show();
    }
    ~SplashLayoutMatrixTest() override {
        QApplication::setFont(usualFont);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    void speak(const QString &language) {
        const auto texts = StandardNames::getInfoFromURL(
            QUrl(QStringLiteral("qrc:/velmora/%1/Localizable.strings").arg(language)));
        const auto text = [&](const char *key) {
            EXPECT_FALSE(texts.value(QLatin1String(key)).isEmpty()) << qPrintable(language) << key;
            return texts.value(QLatin1String(key));
        };
        first()->setText(text("ApplicationWillBeLaunchedTextFirst"));
        second()->setText(text("ApplicationWillBeLaunchedTextSecond"));
        const QString removeAds = text("RemoveAdsText");
        outlets.removeAdsButton->setText(removeAds);
        outlets.removeAdsImageButton->setText(
            QString(removeAds).replace(QLatin1Char(' '), QLatin1Char('\n')).toUpper());
        adText = text("AdMarkText");
    }

    void show(const View &view, const QSize &size) {
        SplashScreenVisibility::apply(outlets, view.phase, {leftOut, false, view.hasStill, true});
        const QString seconds = view.phase == Phase::Start   ? QStringLiteral("10")
                                : view.phase == Phase::Video ? QStringLiteral("5")
                                                             : QString();
        outlets.adMark->setText(seconds.isEmpty() ? adText
                                                  : adText + QStringLiteral(" \u00b7 ") + seconds);
        outlets.timeLabel()->setText(seconds);
        outlets.timeVideoLabel->setText(seconds);
        root->resize(size);
        layout->apply();
    }

    TextField *first() { return outlets.lablesView->textCommentFieldFirst(); }
    TextField *second() { return outlets.lablesView->textCommentFieldSecond(); }

    bool isThere(const QWidget *element) const {
        return !Animator::isHidden(element) && !element->size().isEmpty();
    }
    bool isLineThere(const QWidget *line) const {
        return isThere(outlets.lablesView) && !line->size().isEmpty();
    }

    /// What the user sees, without the pictures that fill the window.
    std::vector<const QWidget *> shown() {
        std::vector<const QWidget *> found;
        for (const QWidget *line :
             std::initializer_list<QWidget *>{first(), second(), outlets.timeProgressView()}) {
            if (isLineThere(line))
                found.push_back(line);
        }
        for (const QWidget *element : std::initializer_list<QWidget *>{
                 outlets.iconImageView, outlets.removeAdsButton, outlets.removeAdsImageButton,
                 outlets.videoProgressView, outlets.closeButton, outlets.soundButton,
                 outlets.adMark}) {
            if (isThere(element))
                found.push_back(element);
        }
        return found;
    }

    QRect frame(const QWidget *element) const {
        return {element->mapTo(root.get(), QPoint()), element->size()};
    }

    void checkGeometry(const View &view) {
        const auto elements = shown();
        for (size_t i = 0; i < elements.size(); ++i) {
            EXPECT_TRUE(root->rect().contains(frame(elements[i])))
                << qPrintable(elements[i]->objectName());
            for (size_t j = i + 1; j < elements.size(); ++j)
                EXPECT_FALSE(frame(elements[i]).intersects(frame(elements[j])))
                    << qPrintable(elements[i]->objectName()) << " and "
                    << qPrintable(elements[j]->objectName());
        }
        const QWidget *ring = view.phase == Phase::Start ? outlets.timeProgressView()
                              : view.phase == Phase::Video
                                  ? static_cast<QWidget *>(outlets.videoProgressView)
                                  : outlets.closeButton;
        EXPECT_GE(std::min(ring->width(), ring->height()), 28);
        EXPECT_TRUE(std::ranges::find(elements, ring) != elements.end());
        if (!Animator::isHidden(outlets.adMark)) {
            EXPECT_TRUE(isThere(outlets.adMark));
        }
    }

    // A text is complete, and it is wrapped only where the window is too narrow for it.
    void checkLine(const TextField *line) {
        if (!isLineThere(line))
            return;
        const QSize needed = line->sizeForWidth(line->width());
        EXPECT_LE(needed.width(), line->width()) << qPrintable(line->text());
        EXPECT_LE(needed.height(), line->height()) << qPrintable(line->text());
        const QSize oneLine = line->sizeForWidth(100'000);
        const int margin = SplashLengths(root->size()).margin();
        if (line->height() > oneLine.height()) {
            EXPECT_GT(oneLine.width(), root->width() - 2 * margin) << qPrintable(line->text());
        }
    }

    void checkOrder() {
        // A button that is wider than the window does not take the others with it.
        const bool isTooWide = outlets.removeAdsButton->sizeHint().width() >
                               root->width() - 2 * SplashLengths(root->size()).margin();
        const bool isFirstThere = isLineThere(first());
        const bool there[] = {isThere(outlets.iconImageView), isLineThere(second()),
                              isTooWide ? isFirstThere : isThere(outlets.removeAdsButton),
                              isFirstThere};
        EXPECT_TRUE(std::ranges::is_sorted(there)) << "left out in the wrong order";
    }

    VirtualTime time;
    const QFont usualFont = QApplication::font();
    std::unique_ptr<QWidget> root{SplashScreenInterface::load()};
    SplashScreenOutlets outlets = SplashScreenOutlets::of(root.get());
    SplashScreenVisibility::LeftOut leftOut;
    SplashScreenLayout *layout = nullptr;
    QString adText;
};

TEST_F(SplashLayoutMatrixTest, NothingOverlapsOrIsCutOffAtAnySize) {
    ASSERT_EQ(languages().size(), 10);
    for (const int points : {0, 18}) {
        QFont font = usualFont;
        if (points > 0)
            font.setPointSize(points);
        QApplication::setFont(font);
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QApplication::setLayoutDirection(direction);
            for (const QString &language : languages()) {
                speak(language);
                for (const int width : {160, 200, 240, 320, 480, 640, 1600}) {
                    for (const int height : {120, 160, 200, 240, 320, 480, 1200}) {
                        for (const View &view : views) {
                            SCOPED_TRACE(::testing::Message()
                                         << qPrintable(language) << ' ' << width << 'x' << height
                                         << ' ' << view.name << ", font " << points);
                            show(view, {width, height});
                            checkGeometry(view);
                            if (view.phase == Phase::Start) {
                                checkLine(first());
                                checkLine(second());
                                checkOrder();
                            }
                            if (HasFailure())
                                return;
                        }
                    }
                }
            }
        }
    }
}

TEST_F(SplashLayoutMatrixTest, NothingIsLeftOutWhereThereIsRoom) {
    for (const QString &language : languages()) {
        speak(language);
        for (const QSize &size :
             {QSize(320, 240), {640, 480}, {1600, 120}, {1000, 160}, {240, 1200}}) {
            SCOPED_TRACE(::testing::Message() << qPrintable(language) << ' ' << size.width());
            show(views[0], size);
            for (const QWidget *element : std::initializer_list<QWidget *>{
                     outlets.iconImageView, first(), second(), outlets.removeAdsButton})
                EXPECT_FALSE(element->size().isEmpty()) << qPrintable(element->objectName());
            EXPECT_NE(outlets.removeAdsButton->focusPolicy(), Qt::NoFocus);
        }
        show(views[0], {160, 120});
        EXPECT_TRUE(outlets.removeAdsButton->size().isEmpty());
        EXPECT_EQ(outlets.removeAdsButton->focusPolicy(), Qt::NoFocus);
    }
}

TEST_F(SplashLayoutMatrixTest, ContactSheet) {
    const QString file = qEnvironmentVariable("VELMORA_CONTACT_SHEET");
    if (file.isEmpty())
        GTEST_SKIP() << "VELMORA_CONTACT_SHEET is not set";
    auto *ground = qobject_cast<ColoredView *>(root.get());
    for (TimeProgressView *ring : outlets.rings()) {
        ring->setBackgroundColor(Qt::white);
        ring->setBackgroundProgressColor(Qt::gray);
        ring->setProgressColor(Qt::darkGray);
        ring->setWidthBorder(2);
        ring->setWidthProgress(4);
        ring->setVal1(30);
    }
    for (TextField *text : {first(), second(), outlets.timeLabel(), outlets.timeVideoLabel.data()})
        text->setTextColor(Qt::black);
    const QList<QSize> sizes{{160, 120}, {240, 160}, {320, 240}, {640, 120},
                             {640, 480}, {160, 480}, {1000, 120}};
    QList<QImage> rows;
    for (const QString &language : languages()) {
        speak(language);
        for (const QSize &size : sizes) {
            QImage row(5 * size.width() + 60, size.height() + 10, QImage::Format_RGB32);
            row.fill(QColor(90, 90, 90));
            QPainter painter(&row);
            for (int i = 0; i < 5; ++i) {
                ground->setColor(views[i].phase == Phase::Start || i == 3 ? Qt::white
                                                                          : QColor(200, 120, 60));
                show(views[i], size);
                time.advance(1);
                painter.drawPixmap(5 + i * (size.width() + 10), 5, root->grab());
            }
            rows.append(row);
        }
    }
    int width = 0;
    int height = 0;
    for (const QImage &row : std::as_const(rows)) {
        width = std::max(width, row.width());
        height += row.height();
    }
    QImage sheet(width, height, QImage::Format_RGB32);
    sheet.fill(QColor(90, 90, 90));
    QPainter painter(&sheet);
    int y = 0;
    for (const QImage &row : std::as_const(rows)) {
        painter.drawImage(0, y, row);
        y += row.height();
    }
    EXPECT_TRUE(sheet.save(file));
}

} // namespace velmora::test
