// SPDX-License-Identifier: Apache-2.0
#include "AdsEventLogger.h"

#include "MainQueue.h"
#include "ProcessRoot.h"
#include "SharedUrlSession.h"
#include "WebLink.h"

#include <Velmora/Support.h>

namespace velmora {

AdsEventLogger &AdsEventLogger::sharedInstance() {
    return ProcessRoot::get<AdsEventLogger>();
}

AdsEventLogger::AdsEventLogger() {
    // Made before the logger, so that it is destroyed after it.
    SharedUrlSession::shared();
}

AdsEventLogger::~AdsEventLogger() {
    // Otherwise a request could still leave after its URL has joined the queue.
    if (const auto session = SharedUrlSession::existing())
        session->close();
}

void AdsEventLogger::logEventWithURL(const QUrl &url) {
    // Once exit() has begun, nothing can be stored or sent.
    if (!ProcessRoot::hasEnded())
        MainQueue::runOrPost([url] { sharedInstance().log(url); });
}

void AdsEventLogger::log(const QUrl &url) {
    if (!WebLink::isOnTheWeb(url)) {
        LOG(QStringLiteral("event refused, not a web address: %1").arg(url.toString()));
        return;
    }
    // The server does not answer, and the time-out of a request is long.
    if (m_queue.hasTooManyUnderWay())
        m_queue.append(url);
    else
        request(m_queue.begin(url), url);
}

void AdsEventLogger::request(EventQueue::Number number, const QUrl &url) {
    UrlRequest request;
    request.url = url;
    request.ignoresBody = true;
    request.onlyOnce = true;
    SharedUrlSession::shared().start(request, [number](const UrlResponse &response) {
        sharedInstance().answered(number, response);
    });
}

void AdsEventLogger::answered(EventQueue::Number number, const UrlResponse &response) {
    if (!response.error.isEmpty()) {
        m_queue.failed(number);
        return;
    }
    m_queue.delivered(number);
    logAllStack();
}

void AdsEventLogger::addEventURL(const QUrl &url) {
    MainQueue::post([url] { sharedInstance().m_queue.append(url); });
}

void AdsEventLogger::logAllStack() {
    MainQueue::post([] {
        AdsEventLogger &logger = sharedInstance();
        const QMap<EventQueue::Number, QUrl> begun = logger.m_queue.beginAll();
        for (auto it = begun.begin(); it != begun.end(); ++it)
            logger.request(it.key(), it.value());
    });
}

} // namespace velmora
