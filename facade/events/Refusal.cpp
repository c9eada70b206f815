// SPDX-License-Identifier: Apache-2.0
#include "Refusal.h"

#include "EventSource.h"
#include "MainQueue.h"

#include <Velmora/Support.h>

namespace velmora {

void Refusal::report(Request request, Reason reason, const QString &text) {
    LOG(text);
    signal(request, reason, text);
}

void Refusal::signal(Request request, Reason reason, const QString &text) {
    if (!EventSource::existing())
        return;
    MainQueue::post([request, reason, text] {
        if (VelmoraEvents *events = EventSource::existing())
            Q_EMIT events->refused(request, reason, text);
    });
}

void Refusal::reportAdsRemoved(Request request) {
    report(request, Reason::AdsRemoved, QStringLiteral("ads are removed"));
}

} // namespace velmora
