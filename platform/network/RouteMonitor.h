// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/ReachabilityFlags.h>

#include <QtCore/QString>
#include <QtNetwork/QHostAddress>

#include <functional>
#include <memory>

namespace velmora {

/// What is watched: a host name, or an address when the name is empty.
struct RouteTarget {
    /// 0.0.0.0 and :: stand for the internet in general, 169.254.0.0 for the local network.
    QHostAddress address;
    /// Kept for the host's information; routes do not depend on it.
    quint16 port = 0;
    QString hostName;
};

/// Reads and watches how one target is routed. Routes are the system's own opinion: nothing is
/// sent to the target, except that a host name is looked up. Every operation may be called from
/// any thread and none waits for the network.
class RouteMonitor {
public:
    using Callback = std::function<void(ReachabilityFlags)>;

    enum class StartResult {
        Started,
        CallbackRefused, ///< the system does not tell about changes
        QueueRefused,    ///< there is no thread to tell them on
    };

    /// The flags of an address now, 0 when they cannot be read. Below a millisecond.
    static ReachabilityFlags query(const QHostAddress &target);

    /// A monitor at rest, or nothing when the target can never be one: no address, or a name
    /// that is empty or too long. The look-up of a name begins here.
    static std::unique_ptr<RouteMonitor> create(const RouteTarget &target);

    ~RouteMonitor();
    RouteMonitor(const RouteMonitor &) = delete;
    RouteMonitor &operator=(const RouteMonitor &) = delete;

    const RouteTarget &target() const;

    /// The target's flags now; 0 for a host name that is not known, or not known yet.
    ReachabilityFlags flags() const;

    /// Begins to report every change of the flags, on a serial queue of the monitor's own. The
    /// state at start is not reported, unless it is a host name's that becomes known later.
    /// Replaces an earlier start.
    /// @param error receives the system's reason when the result is not Started
    StartResult start(Callback callback, QString *error);

    /// Ends the reports. A callback that is due at this very moment may still run to its end
    /// afterwards: stopping or destroying the monitor, also from the callback, waits for none.
    void stop();

private:
    struct Private;
    explicit RouteMonitor(std::unique_ptr<Private> state);

    std::unique_ptr<Private> m_d;
};

} // namespace velmora
