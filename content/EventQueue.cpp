// SPDX-License-Identifier: Apache-2.0
#include "EventQueue.h"

#include "HostSettings.h"

#include <QtCore/QSettings>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {
// More events are stored with pauses.
constexpr qsizetype SmallSize = 100;
} // namespace

EventQueue::EventQueue() : m_pace([this] { store(); }) {
    followPlace();
}

EventQueue::~EventQueue() {
    followPlace();
    m_unstored += m_underWay.size();
    m_urls += m_underWay.values();
    m_underWay.clear();
    if (m_mustStore || m_unstored > 0)
        store();
}

void EventQueue::setUrls(const QList<QUrl> &urls) {
    m_urls = urls;
    m_isReplaced = true;
    m_unstored = 0;
}

void EventQueue::append(const QUrl &url) {
    followPlace();
    m_mustStore = true;
    if (!url.isEmpty())
        add(url);
    if (isLarge())
        m_pace.storeSoon();
    else
        store();
}

EventQueue::Number EventQueue::begin(const QUrl &url) {
    followPlace();
    m_underWay.insert(++m_lastNumber, url);
    if (m_store)
        m_store->setUnderWay(ownUrls());
    return m_lastNumber;
}

QMap<EventQueue::Number, QUrl> EventQueue::beginAll() {
    followPlace();
    const bool isChanged = m_isReplaced || m_unstored > 0;
    if (!isChanged && (!m_store || m_store->queue().isEmpty())) {
        m_urls.clear();
        return {};
    }
    QList<QUrl> taken = m_urls;
    const auto take = [&](EventStore::Events &events) {
        taken = merged(events.queue);
        events.queue.clear();
        events.underWay = m_underWay.values() + taken;
    };
    if (m_store && !m_store->change(take))
        return {};
    setStored({});
    QMap<Number, QUrl> begun;
    for (const QUrl &url : std::as_const(taken))
        begun.insert(++m_lastNumber, url);
    m_underWay.insert(begun);
    return begun;
}

void EventQueue::delivered(Number number) {
    m_underWay.remove(number);
    m_pace.storeLater();
}

void EventQueue::failed(Number number) {
    followPlace();
    add(m_underWay.take(number));
    m_pace.storeLater();
}

void EventQueue::add(const QUrl &url) {
    m_urls.append(url);
    ++m_unstored;
    if (m_store || m_urls.size() <= EventStore::LargestQueue)
        return;
    m_urls = EventStore::bounded(m_urls);
    m_unstored = std::min(m_unstored, m_urls.size());
}

void EventQueue::followPlace() {
    const QString place = HostSettings::place();
    if (place.isEmpty() || (m_store && place == m_store->place()))
        return;
    auto store = std::make_unique<EventStore>(HostSettings::open());
    store->adopt();
    if (m_store) {
        moveTo(std::move(store));
        return;
    }
    m_store = std::move(store);
    m_unstored = m_urls.size();
    m_urls = m_store->queue() + m_urls;
    m_isReplaced = false;
    if (!ownUrls().isEmpty())
        this->store();
}

// The settings of the former name stay in use as long as the queue can't be moved.
void EventQueue::moveTo(std::unique_ptr<EventStore> store) {
    QList<QUrl> queue = store->queue();
    bool isMoved = !m_isReplaced && ownUrls().isEmpty() && m_store->queue().isEmpty();
    if (isMoved) {
        m_store->setUnderWay({}); // the answer to the last one may not be stored yet
    } else {
        m_store->change([&](EventStore::Events &former) {
            // Written to the new place first, so that nothing is lost when the process is killed
            // between the two.
            isMoved = store->change([&](EventStore::Events &events) {
                queue = events.queue = EventStore::bounded(events.queue + merged(former.queue));
                events.underWay = m_underWay.values();
            });
            if (isMoved)
                former.queue.clear();
            else
                former.underWay = ownUrls();
        });
    }
    if (!isMoved)
        return;
    m_store = std::move(store);
    setStored(queue);
}

// The stored queue, which another process may have changed, with this process's changes.
QList<QUrl> EventQueue::merged(const QList<QUrl> &stored) const {
    return m_isReplaced ? m_urls : stored + m_urls.last(m_unstored);
}

// What is lost with this process unless it is stored under its own key.
QList<QUrl> EventQueue::ownUrls() const {
    return m_underWay.values() + m_urls.last(m_unstored);
}

bool EventQueue::isLarge() const {
    return m_urls.size() + m_underWay.size() > SmallSize;
}

void EventQueue::setStored(const QList<QUrl> &urls) {
    m_urls = urls;
    m_unstored = 0;
    m_isReplaced = false;
    m_mustStore = false;
}

void EventQueue::store() {
    followPlace();
    if (!m_store)
        return;
    m_pace.setHasPauses(isLarge());
    m_pace.setDone();
    if (!m_mustStore && !m_isReplaced && m_unstored == 0) {
        m_store->setUnderWay(m_underWay.values());
        return;
    }
    QList<QUrl> stored;
    const bool isStored = m_store->change([&](EventStore::Events &events) {
        stored = events.queue = EventStore::bounded(merged(events.queue));
        events.underWay = m_underWay.values();
    });
    if (isStored) {
        setStored(stored);
        return;
    }
    m_store->setUnderWay(ownUrls());
    m_pace.retry();
}

} // namespace velmora
