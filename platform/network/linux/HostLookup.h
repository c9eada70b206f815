// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "WakeEvent.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtNetwork/QHostAddress>

#include <memory>
#include <mutex>
#include <vector>

namespace velmora {

/// The addresses of a host name, as far as they are known. Any thread; nothing here waits.
class HostLookup : public std::enable_shared_from_this<HostLookup> {
public:
    /// @param name in the form that the resolver takes
    explicit HostLookup(QByteArray name);

    /// Looks the name up once more, on a thread of its own: the resolver may take many seconds
    /// and cannot be interrupted. Asked during a look-up, another one follows.
    /// @param wake signalled when the result is there; may be null
    void begin(std::shared_ptr<WakeEvent> wake);

    /// The last result; an earlier one stays while the resolver cannot be reached.
    QList<QHostAddress> addresses() const;

    /// True when the last look-up found nothing and no other is under way.
    bool hasFailed() const;

private:
    void run();

    const QByteArray m_name;
    mutable std::mutex m_mutex;
    QList<QHostAddress> m_addresses;
    std::vector<std::shared_ptr<WakeEvent>> m_waiting;
    bool m_underWay = false;
    bool m_again = false;
    bool m_failed = false;
};

} // namespace velmora
