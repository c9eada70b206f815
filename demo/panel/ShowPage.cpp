// SPDX-License-Identifier: Apache-2.0
#include "demo/panel/ShowPage.h"

#include "demo/Advertising.h"
#include "demo/DemoServer.h"

#include <Velmora/Velmora.h>

#include <QtCore/QFileInfo>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>

namespace demo {

namespace {

constexpr int LongestLoadTime = 15;
constexpr int OneHour = 3600;
const QString SomeAppId = QStringLiteral("1645302987");

} // namespace

ShowPage::ShowPage(Advertising &advertising) : m_advertising(advertising) {
    addRequests();
    addTimes();
    addDefaultVideo();
    finish();
}

void ShowPage::addRequests() {
    addSection(QStringLiteral("Splash screens"));
    addButton(QStringLiteral("Show if due"), QStringLiteral("showSplashButton"), &Velmora::show);
    addButton(QStringLiteral("Show now"), QStringLiteral("forceButton"), &Velmora::forceShow);
    addButton(QStringLiteral("Video only"), QStringLiteral("videoOnlyButton"),
              &Velmora::showWithouSplash);
    addButton(QStringLiteral("Wait again"), QStringLiteral("waitButton"),
              &Velmora::refreshWaitAgain);
}

void ShowPage::addTimes() {
    addSection(QStringLiteral("Times"));
    const auto change = [this](int SplashTimes::*time) {
        return [this, time](int seconds) {
            SplashTimes times = m_advertising.times();
            times.*time = seconds;
            m_advertising.setTimes(times);
        };
    };
    const SplashTimes &times = m_advertising.times();
    addSpinBox(QStringLiteral("Start screen"), 0, LongestLoadTime, times.load,
               change(&SplashTimes::load));
    addSpinBox(QStringLiteral("Next one after"), 0, OneHour, times.wait,
               change(&SplashTimes::wait));
    addSpinBox(QStringLiteral("First one after"), 0, OneHour, times.delay,
               change(&SplashTimes::delay))
        ->setToolTip(QStringLiteral("Counts from when the first window is registered"));
}

void ShowPage::addDefaultVideo() {
    addSection(QStringLiteral("Video when the server has none"));
    m_clips = m_advertising.server().clips();
    QStringList names{QStringLiteral("None")};
    for (const QString &clip : std::as_const(m_clips))
        names.append(QFileInfo(clip).completeBaseName());
    names.append(QStringLiteral("From the journal's bundle"));
    const auto set = [this] { setDefaultVideo(); };
    m_clip = addChoice(QStringLiteral("Video"), names, [set](int) { set(); });
    m_link = new QLineEdit(SomeAppId);
    m_link->setToolTip(QStringLiteral("A link, or the number of an application in the store"));
    connect(m_link, &QLineEdit::editingFinished, this, set);
    addRow(QStringLiteral("Leads to"), m_link);
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
