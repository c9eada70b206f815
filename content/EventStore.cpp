// SPDX-License-Identifier: Apache-2.0
#include "EventStore.h"

#include "Archive.h"
#include "ProcessIdentity.h"
#include "WebLink.h"

#include <Velmora/Support.h>

#include <QtCore/QCborArray>

#include <chrono>
#include <utility>

namespace velmora {

namespace {

const QString QueueKey = QStringLiteral("eventStackData");
const QString UnderWayGroup = QStringLiteral("eventsUnderWay");
const QString ArchiveKind = QStringLiteral("events");
// The main thread waits that long at most. Another process holds the lock for one write. A change
// of the queue can wait, but not an event whose request is about to leave.
constexpr std::chrono::milliseconds Patience{50};
constexpr std::chrono::milliseconds LongPatience{200};

} // namespace

EventStore::EventStore(std::unique_ptr<QSettings> settings)
    : m_settings(std::move(settings)),
      m_ownKey(UnderWayGroup + u'/' + ProcessIdentity::ofThisProcess()) {}

QList<QUrl> EventStore::queue() {
    QByteArray bytes = m_settings.value(QueueKey).toByteArray();
    if (bytes != m_lastBytes) {
        m_lastQueue = unarchived(bytes);
        m_lastBytes = std::move(bytes);
    }
    return m_lastQueue;
}

// The keys of processes that have ended. Before this object has stored anything, that includes the
// key of this process: an earlier object of it, or an earlier process with the same number and
// start time, has left it.
QStringList EventStore::abandonedKeys() {
    QStringList keys = m_settings.keys(UnderWayGroup);
    keys.removeIf([this](const QString &key) {
        return key == m_ownKey ? m_hasOwn
                               : ProcessIdentity::isAlive(key.mid(UnderWayGroup.size() + 1));
    });
    return keys;
}

void EventStore::adopt() {
    if (abandonedKeys().isEmpty())
        return;
    const auto lock = m_settings.lock(Patience);
    if (!lock)
        return; // the next start does it
    const QStringList keys = abandonedKeys();
    QList<QUrl> urls = queue();
    for (const QString &key : keys)
        urls += unarchived(m_settings.value(key).toByteArray());
    m_settings.setValue(QueueKey, archived(bounded(urls)));
    for (const QString &key : keys)
        m_settings.setValue(key, {});
    write();
}

bool EventStore::change(const std::function<void(Events &events)> &change) {
    const auto lock = m_settings.lock(Patience);
    if (!lock) {
        LOG(QStringLiteral("the event queue is in use by another process"));
        return false;
    }
    Events events{queue(), {}};
    change(events);
    m_lastBytes = archived(events.queue);
    m_lastQueue = events.queue;
    // Where the events are added comes first: when another thread reads or writes any setting
    // between the two lines, QSettings writes the first value alone.
    const bool areTaken = events.queue.isEmpty();
    if (areTaken)
        setOwn(events.underWay);
    m_settings.setValue(QueueKey, m_lastBytes);
    if (!areTaken)
        setOwn(events.underWay);
    write();
    return true;
}

void EventStore::setUnderWay(const QList<QUrl> &urls) {
    if (urls.isEmpty() && !m_hasOwn)
        return;
    const auto lock = m_settings.lock(LongPatience);
    if (!lock)
        LOG(QStringLiteral("the events under way are stored without the lock"));
    setOwn(urls);
    write();
}

void EventStore::setOwn(const QList<QUrl> &urls) {
    m_hasOwn = !urls.isEmpty();
    m_settings.setValue(m_ownKey, m_hasOwn ? archived(urls) : QVariant());
}

void EventStore::write() {
    const bool couldWrite = std::exchange(m_canWrite, m_settings.write());
    if (couldWrite && !m_canWrite)
        LOG(QStringLiteral("events are kept for this run only: %1 cannot be written").arg(place()));
}

QList<QUrl> EventStore::bounded(QList<QUrl> queue) {
    const qsizetype tooMany = queue.size() - LargestQueue;
    if (tooMany > 0) {
        LOG(QStringLiteral("the event queue is full: its %1 oldest events are dropped")
                .arg(tooMany));
        queue.remove(0, tooMany);
    }
    return queue;
}

QByteArray EventStore::archived(const QList<QUrl> &urls) {
    QCborArray texts;
    for (const QUrl &url : urls)
        texts.append(url.toString(QUrl::FullyEncoded));
    return Archive::encode(ArchiveKind, texts);
}

QList<QUrl> EventStore::unarchived(const QByteArray &bytes) {
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
