// SPDX-License-Identifier: Apache-2.0
#include <Velmora/NotificationCenter.h>

#include "ProcessRoot.h"

#include <utility>

namespace velmora {

struct NotificationCenter::Observation::Entry {
    QString name;
    QVariant object;
    Handler handler;
    bool removed = false;
};

NotificationCenter::Observation::Observation(std::shared_ptr<Entry> entry)
    : m_entry(std::move(entry)) {}

NotificationCenter::Observation::Observation(Observation &&other) noexcept = default;

NotificationCenter::Observation &
NotificationCenter::Observation::operator=(Observation &&other) noexcept {
    if (this != &other) {
        reset();
        m_entry = std::move(other.m_entry);
    }
    return *this;
}

NotificationCenter::Observation::~Observation() {
    reset();
}

void NotificationCenter::Observation::reset() {
    if (const auto entry = std::exchange(m_entry, nullptr))
        entry->removed = true;
}

NotificationCenter::NotificationCenter() = default;
NotificationCenter::~NotificationCenter() = default;

NotificationCenter &NotificationCenter::defaultCenter() {
    return ProcessRoot::get<NotificationCenter>();
}

NotificationCenter::Observation
NotificationCenter::addObserver(const QString &name, const QVariant &object, Handler handler) {
    auto entry = std::make_shared<Observation::Entry>();
    entry->name = name;
    entry->object = object;
    entry->handler = std::move(handler);
    m_observers.push_back(entry);
    return Observation(entry);
}

NotificationCenter::Observation NotificationCenter::addObserver(const QString &name,
                                                                Handler handler) {
    return addObserver(name, {}, std::move(handler));
}

void NotificationCenter::post(const QString &name, const QVariant &object) {
    if (ProcessRoot::hasEnded())
        return;
    std::erase_if(m_observers, [](const auto &weak) { return weak.expired(); });
    // A copy, because handlers may add observers.
    const auto observers = m_observers;
    for (const auto &weak : observers) {
        const auto entry = weak.lock();
        if (!entry || entry->removed || entry->name != name)
            continue;
        if (entry->object.isValid() && entry->object != object)
            continue;
        entry->handler({name, object});
    }
    Q_EMIT posted(name, object);
}

} // namespace velmora
