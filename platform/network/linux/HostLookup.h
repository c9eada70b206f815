// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "IpAddress.h"
#include "WakeEvent.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <memory>
#include <mutex>
#include <vector>

namespace velmora {

/// Looks up the addresses of a host name in the background. Any thread; no function waits.
class HostLookup : public std::enable_shared_from_this<HostLookup> {
public:
    /// @param name in the form that getaddrinfo() takes, with international names in ASCII (ACE)
    explicit HostLookup(QByteArray name);

    /// Starts a look-up on a background thread, because the resolver may take many seconds and
    /// can't be interrupted. When one is running already, another one follows it.
    /// @param wake signalled at the result; may be null
    void begin(std::shared_ptr<WakeEvent> wake);

    /// The last result. A look-up that could not reach the name service does not change it.
    QList<IpAddress> addresses() const;

    /// True when the last look-up found no address and no other one is running.
    bool hasFailed() const;

private:
    void run();

    const QByteArray m_name;
    mutable std::mutex m_mutex;
    QList<IpAddress> m_addresses;
    std::vector<std::shared_ptr<WakeEvent>> m_waiting;
    bool m_isRunning = false;
    bool m_again = false;
    bool m_failed = false;
};

} // namespace velmora
