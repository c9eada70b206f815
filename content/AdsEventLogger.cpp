#include "content/AdsEventLogger.h"

#include "Support/SharedUrlSession.h"
#include "platform/Archive.h"
#include "platform/MainQueue.h"
#include "platform/ProcessRoot.h"

#include <Velmora/Support.h>

#include <QtCore/QCborArray>

#include <utility>

namespace velmora {

namespace {

const QString EventStackKey = QStringLiteral("eventStackData");
const QString ArchiveKind = QStringLiteral("events");
constexpr double StorePauseSeconds = 0.5;
constexpr qsizetype SmallStack = 100;
// An event's reply is thrown away; more than this is not an event server talking.
constexpr qint64 LargestReply = 1024 * 1024;

bool isOnTheWeb(const QUrl &url) {
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
}

} // namespace

AdsEventLogger &AdsEventLogger::sharedInstance() {
    return ProcessRoot::get<AdsEventLogger>();
}

AdsEventLogger::AdsEventLogger()
    : m_eventStack(unarchived(VLMObjForKey(EventStackKey).toByteArray())) {
    SharedUrlSession::shared();
}

AdsEventLogger::~AdsEventLogger() {
    if (m_storeTimer)
        m_storeTimer->invalidate();
    if (m_unstored)
        store();
}

void AdsEventLogger::logEventWithURL(const QUrl &url) {
    MainQueue::runOrPost([url] { sharedInstance().send(url); });
}

void AdsEventLogger::send(const QUrl &url) {
    if (!isOnTheWeb(url)) {
        LOG(QStringLiteral("event refused, not a web address: %1").arg(url.toString()));
        return;
    }
    UrlRequest request;
    request.url = url;
    request.largestBody = LargestReply;
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
        if (!url.isEmpty())
            logger.m_eventStack.append(url);
        logger.stackChanged();
    });
}

void AdsEventLogger::logAllStack() {
    MainQueue::post([] {
        AdsEventLogger &logger = sharedInstance();
        const QList<QUrl> queued = std::exchange(logger.m_eventStack, {});
        for (const QUrl &url : queued)
            logger.send(url);
        if (!queued.isEmpty())
            logger.stackChanged();
    });
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
    m_unstored = false;
    VLMSetObjForKey(archived(m_eventStack), EventStackKey);
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
        if (isOnTheWeb(url))
            urls.append(url);
    }
    return urls;
}

} // namespace velmora
