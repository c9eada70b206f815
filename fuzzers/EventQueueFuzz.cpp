// SPDX-License-Identifier: Apache-2.0
// The stored event queue. The input is read both as stored bytes and as addresses, one a line.
#include "EventStore.h"
#include "Fuzzing.h"
#include "WebLink.h"

#include <algorithm>

using namespace velmora;
using velmora::fuzz::require;

namespace {

// Compared as they are sent. An address that was written as text and read again can differ from the
// first one by operator==, for instance in a "#" within a fragment.
void checkRoundTrip(const QList<QUrl> &urls) {
    const QList<QUrl> read = EventStore::unarchived(EventStore::archived(urls));
    require(std::equal(read.begin(), read.end(), urls.begin(), urls.end(),
                       [](const QUrl &a, const QUrl &b) { return a.toEncoded() == b.toEncoded(); }),
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
