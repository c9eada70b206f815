// SPDX-License-Identifier: Apache-2.0
#include "demo/EventLog.h"

#include "demo/LinkOpener.h"
#include "demo/Text.h"

#include <Velmora/Notifications.h>

#include <QtCore/QHash>

namespace demo {

EventLog::EventLog(QObject *parent) : QAbstractListModel(parent) {
    m_clock.start();
}

void EventLog::record(const QString &name, const QString &object) {
    const int row = int(m_events.size());
    beginInsertRows({}, row, row);
    m_events.append({m_clock.elapsed(), name, object});
    endInsertRows();
    Q_EMIT recorded(name, object);
}

int EventLog::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(m_events.size());
}

QString EventLog::inWords(const QString &name) {
    static const QHash<QString, Text::Key> words{
        {VLMtryRemoveAds, Text::EventRemoveAdsClicked},
        {VLMclickForBanner, Text::EventBannerClicked},
        {VLMclickForVideo, Text::EventVideoClicked},
        {VLMadsVideoDidStart, Text::EventVideoStarted},
        {VLMadsVideoDidStop, Text::EventVideoStopped},
        {VLMsplashScreenShowMoreOne, Text::EventSplashScreenAgain},
        {VLMsplashScreenWillShow, Text::EventSplashScreenWillShow},
        {VLMsplashScreenDidShow, Text::EventSplashScreenShown},
        {VLMsplashScreenDidClose, Text::EventSplashScreenClosed},
        {QStringLiteral("refused"), Text::EventRefused},
        {QStringLiteral("ads-removed"), Text::EventAdsRemoved},
        {QStringLiteral("ads-reset"), Text::EventAdsReset},
        {LinkOpener::Opened, Text::EventLinkOpened}};
    const auto found = words.find(name);
    return found == words.end() ? name : Text::of(*found);
}

QVariant EventLog::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const Event &event = m_events.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return inWords(event.name);
    case Qt::ToolTipRole:
        return event.object.isEmpty() ? event.name : event.name + QLatin1Char('\n') + event.object;
    case ObjectRole:
        return event.object;
    case TimeRole:
        return event.milliseconds;
    default:
        return {};
    }
}

} // namespace demo
