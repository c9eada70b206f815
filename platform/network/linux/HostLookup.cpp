// SPDX-License-Identifier: Apache-2.0
#include "HostLookup.h"

#include "BackgroundThread.h"

#include <netdb.h>
#include <sys/socket.h>

namespace velmora {

namespace {

struct Answer {
    QList<IpAddress> addresses;
    // True when the name service has answered, also when it answered that there is no such name.
    bool isFinal = false;
};

Answer resolve(const QByteArray &name) {
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *list = nullptr;
    const int result = getaddrinfo(name.constData(), nullptr, &hints, &list);
    if (result != 0)
        return {{}, result != EAI_AGAIN && result != EAI_SYSTEM && result != EAI_MEMORY};
    Answer answer{{}, true};
    for (const addrinfo *entry = list; entry; entry = entry->ai_next)
        answer.addresses.append(IpAddress(entry->ai_addr));
    freeaddrinfo(list);
    return answer;
}

} // namespace

HostLookup::HostLookup(QByteArray name) : m_name(std::move(name)) {}

void HostLookup::begin(std::shared_ptr<WakeEvent> wake) {
    {
        const std::lock_guard lock(m_mutex);
        if (wake)
            m_waiting.push_back(std::move(wake));
        if (m_isRunning) {
            m_again = true;
            return;
        }
        m_isRunning = true;
    }
    const auto work = [self = shared_from_this()] { self->run(); };
    if (startBackgroundThread("velmora-lookup", AtExit::Ignores, work, nullptr))
        return;
    const std::lock_guard lock(m_mutex);
    m_isRunning = false;
    m_failed = true;
    for (const auto &waiting : std::exchange(m_waiting, {}))
        waiting->signal();
}

void HostLookup::run() {
    for (;;) {
        const Answer answer = resolve(m_name);
        const std::lock_guard lock(m_mutex);
        if (answer.isFinal)
            m_addresses = answer.addresses;
        m_failed = answer.addresses.isEmpty();
        // All waiters are woken by this result. When another look-up follows, they stay in the list
        // and are woken again by its result.
        const std::vector<std::shared_ptr<WakeEvent>> waiting = m_waiting;
        if (!m_again) {
            m_waiting.clear();
            m_isRunning = false;
        }
        for (const auto &wake : waiting)
            wake->signal();
        if (!std::exchange(m_again, false))
            return;
    }
}

QList<IpAddress> HostLookup::addresses() const {
    const std::lock_guard lock(m_mutex);
    return m_addresses;
}

bool HostLookup::hasFailed() const {
    const std::lock_guard lock(m_mutex);
    return m_failed && !m_isRunning;
}

} // namespace velmora
