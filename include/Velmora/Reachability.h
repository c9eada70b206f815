// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>
#include <Velmora/ReachabilityFlags.h>

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

namespace velmora {

class RouteMonitor;
struct RouteTarget;

/// Through which kind of network a target is reachable.
enum NetworkStatus {
    NetworkStatusNone = 0,     ///< the target is not reachable
    NetworkStatusCellular = 1, ///< never used on a desktop
    NetworkStatusWiFi = 2,     ///< any network, also a wired one
};

/// Tells whether the system has a route to one target, and reports changes. Nothing is sent to the
/// target, so a reachable target may still not answer; but a host name is looked up by DNS.
///
/// Any thread may call any function, and none waits for the network. Every query reads the current
/// flags; when they can't be read, it returns false or 0. The flags of a host name are 0 until it
/// has been looked up. A monitor reports nothing until startNotifier(), and keeps itself alive from
/// then until stopNotifier().
class VELMORA_EXPORT Reachability : public std::enable_shared_from_this<Reachability> {
public:
    /// The types of the callbacks.
    using NetworkReachable = std::function<void(Reachability *)>;
    using NetworkUnreachable = std::function<void(Reachability *)>;
    using NetworkReachability = std::function<void(Reachability *, ReachabilityFlags)>;

    /// A callback that one thread may replace while another one calls it. Assign a function to set
    /// it, and nullptr to remove it.
    template<typename... Arguments>
    class Block {
    public:
        using Function = std::function<void(Arguments...)>;

        Block &operator=(Function function) {
            const std::lock_guard lock(m_mutex);
            m_function.swap(function); // so that the old function is destroyed without the lock
            return *this;
        }
        void operator()(Arguments... arguments) const {
            Function function;
            {
                const std::lock_guard lock(m_mutex);
                function = m_function;
            }
            if (function)
                function(arguments...);
        }

    private:
        mutable std::mutex m_mutex;
        Function m_function;
    };

    /// Makes a monitor of a host name. This and all functions below that make a monitor return null
    /// for an impossible target: a text that is not an address, or a name that is empty or too
    /// long.
    static std::shared_ptr<Reachability> reachabilityWithHostname(const QString &hostname);
    /// The same under a second spelling.
    static std::shared_ptr<Reachability> reachabilityWithHostName(const QString &hostname);
    /// Makes a monitor of an address.
    /// @param address an IPv4 or IPv6 address as text; 0.0.0.0 and :: stand for the internet in
    ///                general, 169.254.0.0 for the local network
    /// @param port    only returned by targetPort(); routes do not depend on it
    static std::shared_ptr<Reachability> reachabilityWithAddress(const QString &address,
                                                                 quint16 port = 0);
    /// Makes a monitor of the internet in general: of the address that the framework's build
    /// options name for it. Main thread.
    static std::shared_ptr<Reachability> reachabilityForInternetConnection();
    /// Makes a monitor of the local network: of 169.254.0.0.
    static std::shared_ptr<Reachability> reachabilityForLocalWiFi();
    /// Makes a monitor of a URL's host. When the host is a dotted IPv4 address, targetPort() is the
    /// URL's port, or without one 443 for https and 80 for other schemes.
    static std::shared_ptr<Reachability> reachabilityWithURL(const QUrl &url);

    /// True when a text is a dotted IPv4 address.
    static bool isIpAddress(const QString &host);

    ~Reachability();
    Reachability(const Reachability &) = delete;
    Reachability &operator=(const Reachability &) = delete;

    /// One of the two is called when the flags have changed and the target is, or is not,
    /// reachable. Called on the monitor's own thread, never on the main thread. The pointer is
    /// valid during the call; shared_from_this() keeps the monitor longer.
    Block<Reachability *> reachableBlock;
    Block<Reachability *> unreachableBlock;
    /// Called after one of the two above.
    Block<Reachability *, ReachabilityFlags> reachabilityBlock;

    /// Has no effect on a desktop.
    std::atomic<bool> reachableOnWWAN = true;

    /// Starts to report changes: to the callbacks and, on the main thread, by
    /// kReachabilityChangedNotification, which needs an application object. The flags at the start
    /// are not reported.
    /// @return true when it is started now, or was already; false when the system has refused, with
    ///         the reason in the log
    bool startNotifier();
    /// Stops the reports. Does not wait for a running callback. Destroys the monitor when nobody
    /// else holds a pointer to it.
    void stopNotifier();

    /// True when there is a route to the target. False when that needs a transient connection which
    /// must be established first.
    bool isReachable() const;
    /// Always false on a desktop.
    bool isReachableViaWWAN() const;
    /// True when there is a route to the target, through any kind of network.
    bool isReachableViaWiFi() const;
    /// True when a connection must be established first.
    bool connectionRequired() const;
    /// The same as connectionRequired().
    bool isConnectionRequired() const;
    /// True when a connection must be established first, and is established automatically.
    bool isConnectionOnDemand() const;
    /// True when a connection must be established first, and the user must act for that.
    bool isInterventionRequired() const;
    /// NetworkStatusWiFi when isReachable(), otherwise NetworkStatusNone.
    NetworkStatus currentReachabilityStatus() const;
    /// The status as text: "WiFi" or "No Connection", translated by the host's QTranslator (context
    /// "Velmora").
    QString currentReachabilityString() const;
    /// The current flags.
    ReachabilityFlags reachabilityFlags() const;
    /// The current flags as text, one character for each, for example "XR -------".
    QString currentReachabilityFlags() const;
    /// The class name, the object's address and the flags, for logs.
    QString description() const;

    /// The host name, or the address as text.
    QString targetHost() const;
    /// The port that was given with an address; otherwise 0.
    quint16 targetPort() const;

    /// The same queries for given flags.
    static bool isReachableWithFlags(ReachabilityFlags flags);
    static bool isConnectionOnDemand(ReachabilityFlags flags);
    static bool isInterventionRequired(ReachabilityFlags flags);
    static QString currentReachabilityFlags(ReachabilityFlags flags);

private:
    explicit Reachability(std::unique_ptr<RouteMonitor> reachabilityRef);
    static std::shared_ptr<Reachability> make(const RouteTarget &target);
    void reachabilityChanged(ReachabilityFlags flags);

    const std::unique_ptr<RouteMonitor> m_reachabilityRef;
    std::mutex m_notifierMutex;
    std::shared_ptr<Reachability> m_reachabilityObject; // this object while it is started
};

} // namespace velmora

Q_DECLARE_METATYPE(std::shared_ptr<velmora::Reachability>)
