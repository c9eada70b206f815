// SPDX-License-Identifier: Apache-2.0
// The stored event queue. The input is read both as stored bytes and as addresses, one a line.
#include "EventStore.h"
#include "Fuzzing.h"
#include "WebLink.h"

using namespace velmora;
using velmora::fuzz::require;

namespace {

void checkRoundTrip(const QList<QUrl> &urls) {
    require(EventStore::unarchived(EventStore::archived(urls)) == urls,
            "a stored queue is read as it was");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QByteArray bytes = fuzz::bytesOf(data, size);
    const QList<QUrl> read = EventStore::unarchived(bytes);
    for (const QUrl &url : read)
        require((url.scheme() == u"https" || url.scheme() == u"http") && !url.host().isEmpty(),
                "events go to the web");
    checkRoundTrip(read);

    QList<QUrl> urls;
    for (const QByteArray &line : bytes.split('\n')) {
        const QUrl url(QString::fromUtf8(line));
        if (WebLink::isOnTheWeb(url))
            urls.append(url);
    }
    checkRoundTrip(urls);
    return 0;
}
