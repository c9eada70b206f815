// SPDX-License-Identifier: Apache-2.0
#include "demo/panel/ShowPage.h"

#include "demo/Advertising.h"
#include "demo/DemoServer.h"

#include <Velmora/Velmora.h>

#include <QtCore/QFileInfo>
#include <QtCore/QTimer>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>

namespace demo {

namespace {

constexpr int LongestLoadTime = 15;
constexpr int OneHour = 3600;
// Long enough to go back to the page and type.
constexpr int SoonMs = 5000;

const QString SomeAppId = QStringLiteral("1645302987");

} // namespace

ShowPage::ShowPage(Advertising &advertising) : m_advertising(advertising) {
    addRequests();
    addTimes();
    addDefaultVideo();
    finish();
}

void ShowPage::addRequests() {
    addSection(Text::ShowRequests);
    addButton(Text::ShowIfDue, QStringLiteral("showSplashButton"), &Velmora::show);
    addButton(Text::ShowNow, QStringLiteral("forceButton"), &Velmora::forceShow);
    addButton(Text::ShowSoon, QStringLiteral("soonButton"),
              [this] { QTimer::singleShot(SoonMs, this, &Velmora::forceShow); });
    addButton(Text::ShowVideoOnly, QStringLiteral("videoOnlyButton"), &Velmora::showWithouSplash);
    addButton(Text::ShowWaitAgain, QStringLiteral("waitButton"), &Velmora::refreshWaitAgain);
}

void ShowPage::addTimes() {
    addSection(Text::ShowTimes);
    const auto change = [this](int SplashTimes::*time) {
        return [this, time](int seconds) {
            SplashTimes times = m_advertising.times();
            times.*time = seconds;
            m_advertising.setTimes(times);
        };
    };
    const SplashTimes &times = m_advertising.times();
    addSpinBox(Text::ShowLoadTime, 0, LongestLoadTime, times.load, change(&SplashTimes::load));
    addSpinBox(Text::ShowWaitTime, 0, OneHour, times.wait, change(&SplashTimes::wait));
    addSpinBox(Text::ShowDelay, 0, OneHour, times.delay, change(&SplashTimes::delay))
        ->setToolTip(Text::of(Text::ShowDelayHint));
}

void ShowPage::addDefaultVideo() {
    addSection(Text::ShowDefaultVideo);
    m_clips = m_advertising.server().clips();
    QStringList names{Text::of(Text::ShowNoVideo)};
    for (const QString &clip : std::as_const(m_clips))
        names.append(QFileInfo(clip).completeBaseName());
    names.append(Text::of(Text::ShowBundledVideo));
    const auto set = [this] { setDefaultVideo(); };
    m_clip = addChoice(Text::ShowVideo, names, [set](int) { set(); });
    m_link = new QLineEdit(SomeAppId);
    m_link->setToolTip(Text::of(Text::ShowVideoLinkHint));
    connect(m_link, &QLineEdit::editingFinished, this, set);
    addRow(Text::ShowVideoLink, m_link);
}

void ShowPage::setDefaultVideo() {
    const QString link = m_link->text().trimmed();
    const int clip = m_clip->currentIndex() - 1;
    if (clip >= m_clips.size()) {
        Velmora::setDefaultVideoName(QStringLiteral("tidewick-film.mp4"), link);
        return;
    }
    const QUrl video = clip < 0 ? QUrl() : QUrl::fromLocalFile(m_clips.at(clip));
    if (link.contains(QStringLiteral("://")))
        Velmora::setDefaultVideoWithURL(video, QUrl(link));
    else
        Velmora::setDefaultVideoURL(video, link);
}

} // namespace demo
