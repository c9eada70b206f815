// SPDX-License-Identifier: Apache-2.0
#include "AdsEventLogger.h"

#include "Archive.h"
#include "HostSettings.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "SharedUrlSession.h"
#include "WebLink.h"

#include <Velmora/Support.h>

#include <QtCore/QCborArray>

#include <utility>

namespace velmora {

namespace {

const QString EventStackKey = QStringLiteral("eventStackData");
const QString ArchiveKind = QStringLiteral("events");
constexpr double StorePauseSeconds = 0.5;
constexpr qsizetype SmallStack = 100;

} // namespace

AdsEventLogger &AdsEventLogger::sharedInstance() {
    return ProcessRoot::get<AdsEventLogger>();
}

AdsEventLogger::AdsEventLogger() {
    followName();
    if (!m_eventStack.isEmpty())
        store(); // counts as written by this run, so that it moves when the name changes
    SharedUrlSession::shared();
}

AdsEventLogger::~AdsEventLogger() {
    if (m_storeTimer)
        m_storeTimer->invalidate();
    followName();
    if (m_unstored)
        store();
}

void AdsEventLogger::logEventWithURL(const QUrl &url) {
    MainQueue::runOrPost([url] { sharedInstance().send(url); });
}

void AdsEventLogger::send(const QUrl &url) {
    if (!WebLink::isOnTheWeb(url)) {
        LOG(QStringLiteral("event refused, not a web address: %1").arg(url.toString()));
        return;
    }
    UrlRequest request;
    request.url = url;
    request.ignoresBody = true;
    request.onlyOnce = true;
    SharedUrlSession::shared().start(request, [url](const UrlResponse &response) {
        if (response.error.isEmpty())
            sharedInstance().logAllStack();
        else
            sharedInstance().addEventURL(url);
    });
}

void AdsEventLogger::addEventURL(const QUrl &url) {
    MainQueue::post([url] {
        AdsEventLogger &logger = sharedInstance();
        logger.followName();
        if (!url.isEmpty())
            logger.m_eventStack.append(url);
        logger.stackChanged();
    });
}

void AdsEventLogger::logAllStack() {
    MainQueue::post([] {
        AdsEventLogger &logger = sharedInstance();
        logger.followName();
        const QList<QUrl> queued = std::exchange(logger.m_eventStack, {});
        for (const QUrl &url : queued)
            logger.send(url);
        if (!queued.isEmpty())
            logger.stackChanged();
    });
}

void AdsEventLogger::followName() {
    const QString place = HostSettings::place();
    if (place == m_place)
        return;
    m_place = place;
    m_unstored = m_unstored || !m_eventStack.isEmpty();
    m_eventStack = unarchived(HostSettings::value(EventStackKey).toByteArray()) + m_eventStack;
}

void AdsEventLogger::stackChanged() {
    m_unstored = true;
    const bool isSmall = m_eventStack.size() <= SmallStack;
    if (m_storeTimer && m_storeTimer->isValid() && !isSmall)
        return;
    store();
    if (isSmall)
        return;
    m_storeTimer = Timer::scheduled(StorePauseSeconds, Timer::Kind::OneShot, [this] {
        if (m_unstored)
            stackChanged();
    });
    setGodTimer(m_storeTimer);
}

void AdsEventLogger::store() {
    followName();
    m_unstored = m_place.isEmpty(); // stored again once there is a place
    HostSettings::setValue(archived(m_eventStack), EventStackKey, SettingsStore::OnRename::Moves);
}

QByteArray AdsEventLogger::archived(const QList<QUrl> &urls) {
    QCborArray texts;
    for (const QUrl &url : urls)
        texts.append(url.toString(QUrl::FullyEncoded));
    return Archive::encode(ArchiveKind, texts);
}

QList<QUrl> AdsEventLogger::unarchived(const QByteArray &bytes) {
    if (bytes.isEmpty())
        return {};
    const auto root = Archive::decode(ArchiveKind, bytes);
    if (!root || !root->isArray()) {
        LOG(QStringLiteral("the stored event queue is unreadable and starts empty"));
        return {};
    }
    QList<QUrl> urls;
    const QCborArray texts = root->toArray();
    for (const QCborValue &text : texts) {
        const QUrl url(text.toString());
        if (WebLink::isOnTheWeb(url))
            urls.append(url);
    }
    return urls;
}

} // namespace velmora
