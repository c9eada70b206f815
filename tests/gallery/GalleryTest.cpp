// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/Desktop.h"
#include "tests/gallery/GalleryAds.h"
#include "tests/gallery/HostProcess.h"
#include "tests/gallery/PictureCheck.h"
#include "tests/gallery/WaylandCompositor.h"
#include "tests/support/Printing.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <utility>

namespace velmora::test {

namespace {

// Long enough for several pictures.
constexpr int StartScreenSeconds = 3;
// How long the film may take to appear.
constexpr int VideoMs = 5000;
// How long what then stays may take to appear.
constexpr int EndMs = 10000;
constexpr int FadeMs = 250;

struct GalleryCase {
    QString host;
    double scale;

    QString name() const {
        QString text = host;
        if (scale != 1)
            text += QStringLiteral("_at_%1").arg(qRound(scale * 100));
        return text;
    }
    // For the message of a failed test.
    friend void PrintTo(const GalleryCase &tested, std::ostream *out) {
        *out << tested.name().toStdString();
    }
};

// The hosts that the program was built with.
std::vector<GalleryCase> allCases() {
    std::vector<GalleryCase> cases;
    std::FILE *list = popen(VELMORA_TEST_GALLERY " --list", "r");
    char line[100];
    while (list && std::fgets(line, sizeof line, list)) {
        const QString host = QString::fromLatin1(line).trimmed();
        // Qt can't make a QWindow of another toolkit's window under Wayland.
        if (host != QLatin1String("ForeignWindow") || !WaylandCompositor::find(Desktop::name()))
            cases.push_back({host, 1});
    }
    if (list)
        pclose(list);
    for (const double scale : {1.25, 1.5, 2.})
        cases.push_back({QStringLiteral("Plain"), scale});
    return cases;
}

QString pictureFolder() {
    const QString folder = qEnvironmentVariable("VELMORA_GALLERY_OUT", QStringLiteral("gallery"));
    QDir().mkpath(folder);
    return folder;
}

} // namespace

/// A host of some kind, with a splash screen and a banner, as seen and clicked on a real display.
class GalleryTest : public ::testing::TestWithParam<GalleryCase> {
protected:
    using Check = std::function<QString(const QImage &picture)>;

    QProcessEnvironment environment() const {
        QProcessEnvironment values = Desktop::current().environment();
        m_ads.addTo(values);
        if (GetParam().scale != 1)
            values.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(GetParam().scale));
        return values;
    }

    QString fileName(const QString &rest) const {
        return m_folder + QLatin1Char('/') + Desktop::name() + QLatin1Char('-') +
               GetParam().name() + rest;
    }

    /// Waits until the screen is as it must be, and saves a picture of it. What is still wrong then
    /// fails the test.
    void expect(const QString &stage, const Check &faultsIn, int timeoutMs) {
        QImage picture;
        QString fault;
        const auto look = [&] {
            picture = Desktop::current().picture();
            fault = faultsIn(picture);
            return fault.isEmpty();
        };
        eventually(look, timeoutMs);
        const QImage first = picture;
        const bool wasRight = fault.isEmpty();
        quietly(FadeMs);
        if (!look() && wasRight) { // the stage is over
            picture = first;
            fault.clear();
        }
        const QString file = fileName(QStringLiteral(".%1-%2.png").arg(++m_pictures).arg(stage));
        picture.copy(host.report().area()).save(file);
        judge(stage, fault);
    }

    static void judge(const QString &stage, const QString &fault) {
        if (!fault.isEmpty())
            ADD_FAILURE() << qPrintable(stage) << '\n' << qPrintable(fault);
    }

    /// Clicks on elements of the host. @return how many clicks have reached the host
    qsizetype clickOnHost() {
        const qsizetype before = host.count(QStringLiteral("click"));
        for (const QPoint &point : host.report().active().targets())
            clickOnDisplay(point);
        quietly(100);
        return host.count(QStringLiteral("click")) - before;
    }

    void click(const QString &element) {
        const auto area = host.report().active().element(element);
        if (area)
            clickOnDisplay(area->center());
    }

    bool clickIsTold(const QString &element, const QString &notification) {
        host.forget();
        click(element);
        return host.waitFor(QStringLiteral("notification ") + notification, 3000);
    }

    void splashScreen();
    void banner();

private:
    GalleryAds m_ads;
    QString m_folder = pictureFolder();
    int m_pictures = 0;

protected:
    HostProcess host{GetParam().host, StartScreenSeconds, environment(),
                     fileName(QStringLiteral(".log"))};
};

void GalleryTest::splashScreen() {
    // Until the host has drawn all of its windows.
    QList<double> visible;
    const auto hasSettled = [&] {
        const HostReport report = host.report();
        const QList<double> earlier = std::exchange(
            visible, PictureCheck(Desktop::current().picture(), report).visibleParts());
        return visible == earlier && !visible.contains(0.);
    };
    eventually([&] {
        quietly(FadeMs);
        return hasSettled();
    });
    const auto check = [this](QString (PictureCheck::*faults)()) {
        return [this, faults](const QImage &picture) {
            const HostReport report = host.report();
            PictureCheck seen(picture, report);
            return (seen.*faults)();
        };
    };
    host.tell("splash");
    ASSERT_TRUE(host.waitFor(QStringLiteral("notification splashcreendidshow")));
    expect(QStringLiteral("start"), check(&PictureCheck::faultsOfStartScreen),
           StartScreenSeconds * 1000 - FadeMs);
    judge(QStringLiteral("start"),
          clickOnHost() == 0 ? QString() : QStringLiteral("clicks have reached the host"));

    ASSERT_TRUE(host.waitFor(QStringLiteral("notification videostart")));
    expect(QStringLiteral("video"), check(&PictureCheck::faultsOfVideo), VideoMs);
    // The end screen follows the film; the close button may come earlier.
    ASSERT_TRUE(host.waitFor(QStringLiteral("notification videostop"), 30000));
    ASSERT_TRUE(eventually([this] {
        quietly(50);
        return host.report().active().element(QStringLiteral("splash/closeButton")).has_value();
    }));
    expect(QStringLiteral("end"), check(&PictureCheck::faultsOfEndScreen), EndMs);
    ASSERT_TRUE(
        clickIsTold(QStringLiteral("splash/closeButton"), QStringLiteral("splashscreendidclose")));

    QString fault;
    eventually(
        [&] {
            const HostReport report = host.report();
            fault = PictureCheck(Desktop::current().picture(), report).faultsOfHost(visible);
            return fault.isEmpty();
        },
        2000);
    judge(QStringLiteral("after"), fault);
    quietly(500); // until then, a click may be the second one of a double click
    const qsizetype targets = host.report().active().targets().size();
    const qsizetype reached = clickOnHost();
    if (reached != targets)
        judge(QStringLiteral("after"),
              QStringLiteral("%1 of %2 clicks have reached the host").arg(reached).arg(targets));
}

void GalleryTest::banner() {
    host.tell("banner");
    expect(
        QStringLiteral("banner"),
        [this](const QImage &picture) {
            const HostReport report = host.report();
            return PictureCheck(picture, report).faultsOfBanner();
        },
        EndMs);
    quietly(400); // clicks on a banner that has just appeared are ignored
    EXPECT_TRUE(clickIsTold(QStringLiteral("banner/bannerImage"),
                            QStringLiteral("clickforbanner Colours")));
    EXPECT_EQ(host.count(QStringLiteral("opened ")), 1);
    EXPECT_TRUE(clickIsTold(QStringLiteral("banner/closeButton"), QStringLiteral("tryremoveads")));
}

TEST_P(GalleryTest, ShowsAdsAndIsClicked) {
    ASSERT_TRUE(host.waitFor(QStringLiteral("ready")));
    splashScreen();
    if (!HasFatalFailure())
        banner();
    EXPECT_TRUE(host.end());
}

INSTANTIATE_TEST_SUITE_P(Hosts, GalleryTest, ::testing::ValuesIn(allCases()),
                         [](const auto &tested) { return tested.param.name().toStdString(); });

} // namespace velmora::test
