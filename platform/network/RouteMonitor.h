// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "IpAddress.h"

#include <Velmora/ReachabilityFlags.h>

#include <QtCore/QString>

#include <functional>
#include <memory>

namespace velmora {

/// What is watched: an address, or a host name when the address is null.
struct RouteTarget {
    /// 0.0.0.0 and :: stand for the internet in general, 169.254.0.0 for the local network. Null
    /// for a host name.
    IpAddress address;
    /// Only stored; routes do not depend on it.
    quint16 port = 0;
    QString hostName;
};

/// Reads the system's route to one target, and reports when it changes. Nothing is sent to the
/// target, so a route does not tell that the target answers; but a host name is looked up by DNS.
/// Any thread; no function waits for the network.
class RouteMonitor {
public:
    using Callback = std::function<void(ReachabilityFlags)>;

    enum class StartResult {
        Started,
        CallbackRefused, ///< the system does not report changes
        QueueRefused,    ///< there is no thread to report them on
    };

    /// The current flags of an address; 0 when they can't be read. Takes less than a millisecond.
    static ReachabilityFlags query(const IpAddress &target);

    /// Makes a monitor that is not started. Returns null when the target is neither an address nor
    /// a possible host name, because the name is empty or too long. Starts looking a name up.
    static std::unique_ptr<RouteMonitor> create(const RouteTarget &target);

    ~RouteMonitor();
    RouteMonitor(const RouteMonitor &) = delete;
    RouteMonitor &operator=(const RouteMonitor &) = delete;

    const RouteTarget &target() const;

    /// The target's current flags; 0 for a host name that does not exist or has not been looked up
    /// yet.
    ReachabilityFlags flags() const;

    /// Starts to report every change of the flags. The flags at the start are not reported; those
    /// of a host name are 0 until it has been looked up. A second call replaces the first.
    /// @param callback called on the monitor's own thread, never twice at the same time
    /// @param error    receives the system's reason when the result is not Started; may be null
    StartResult start(Callback callback, QString *error);

    /// Stops the reports. Does not wait for a running callback, which may still be running
    /// afterwards. So the monitor can be stopped, and destroyed, inside the callback.
    void stop();

private:
    struct Private;
    explicit RouteMonitor(std::unique_ptr<Private> state);

    std::unique_ptr<Private> m_d;
};

} // namespace velmora
