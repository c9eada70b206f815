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

enum NetworkStatus {
    NetworkStatusNone = 0,
    NetworkStatusCellular = 1, ///< never the answer on a desktop
    NetworkStatusWiFi = 2,     ///< any network, wired ones too
};

/// Watches whether one target can be reached, as far as the system's routes tell: nothing is sent
/// to the target, except that a host name is looked up. Idle after construction; from
/// startNotifier() on it keeps itself alive, until stopNotifier(). Any thread may call it and none
/// waits for the network. Every query reads the current flags; when they cannot be read the answer
/// is false, 0 or the empty set. A host name's flags are 0 until its look-up has ended. Needs the
/// application object for its notification.
class VELMORA_EXPORT Reachability : public std::enable_shared_from_this<Reachability> {
public:
    /// What the callbacks look like.
    using NetworkReachable = std::function<void(Reachability *)>;
    using NetworkUnreachable = std::function<void(Reachability *)>;
    using NetworkReachability = std::function<void(Reachability *, ReachabilityFlags)>;

    /// A callback that one thread may replace while another calls it. Assigned like a function.
    template<typename... Arguments>
    class Block {
    public:
        using Function = std::function<void(Arguments...)>;

        Block &operator=(Function function) {
            const std::lock_guard lock(m_mutex);
            m_function.swap(function); // the old one goes after the lock
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

    /// A monitor of a host name. Nothing when the target can never be reached, here and in all
    /// constructors below: not an address, or a name that is empty or too long.
    static std::shared_ptr<Reachability> reachabilityWithHostname(const QString &hostname);
    /// The same under a second spelling.
    static std::shared_ptr<Reachability> reachabilityWithHostName(const QString &hostname);
    /// A monitor of an address.
    /// @param address text of an IPv4 or IPv6 address; 0.0.0.0 and :: stand for the internet in
    ///                general, 169.254.0.0 for the local network
    /// @param port    kept for targetPort(); routes do not depend on it
    static std::shared_ptr<Reachability> reachabilityWithAddress(const QString &address,
                                                                 quint16 port = 0);
    /// The internet in general: the address that this build of the framework names for it. Main
    /// thread.
    static std::shared_ptr<Reachability> reachabilityForInternetConnection();
    /// The local network: 169.254.0.0.
    static std::shared_ptr<Reachability> reachabilityForLocalWiFi();
    /// The URL's address and port (443 for https and else 80, if the URL has none) when its
    /// host is a dotted IPv4 address, otherwise its host name.
    static std::shared_ptr<Reachability> reachabilityWithURL(const QUrl &url);

    /// True for the text of a dotted IPv4 address.
    static bool isIpAddress(const QString &host);

    ~Reachability();
    Reachability(const Reachability &) = delete;
    Reachability &operator=(const Reachability &) = delete;

    /// Called when the flags changed, on the monitor's serial queue and never on the main
    /// thread. The pointer is valid during the call; shared_from_this() keeps it longer.
    Block<Reachability *> reachableBlock;
    Block<Reachability *> unreachableBlock;
    /// Called after either of the two.
    Block<Reachability *, ReachabilityFlags> reachabilityBlock;

    /// True from the construction on; nothing depends on it here.
    std::atomic<bool> reachableOnWWAN = true;

    /// Reports changes from now on by the callbacks and, on the main thread, by
    /// kReachabilityChangedNotification with the monitor (std::shared_ptr<Reachability>) as
    /// the object. The state at the start is not reported.
    /// @return false when the system refused, which is logged; true also when it had started
    bool startNotifier();
    /// A callback under way may still end afterwards. May destroy the monitor when nobody
    /// else holds it.
    void stopNotifier();

    /// Reachable, and not only through a transient connection yet to be established.
    bool isReachable() const;
    /// Never on a desktop.
    bool isReachableViaWWAN() const;
    /// Reachable at all, through whatever network.
    bool isReachableViaWiFi() const;
    /// A connection must be established first.
    bool connectionRequired() const;
    bool isConnectionRequired() const;
    /// One must be, and traffic or demand establishes it.
    bool isConnectionOnDemand() const;
    /// One must be, and the user must help.
    bool isInterventionRequired() const;
    NetworkStatus currentReachabilityStatus() const;
    /// "Cellular", "WiFi" or "No Connection", in the host's translation (context "Velmora").
    QString currentReachabilityString() const;
    /// The raw flags.
    ReachabilityFlags reachabilityFlags() const;
    /// The flags as text, for example "XR -------".
    QString currentReachabilityFlags() const;
    /// Class, address of the object and flags, for logs.
    QString description() const;

    /// What is watched: the host name, or the address as text.
    QString targetHost() const;
    /// The address's port, 0 when none was given and for a host name.
    quint16 targetPort() const;

    /// The rules behind the queries, for given flags.
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
    std::shared_ptr<Reachability> m_reachabilityObject; // itself while notifying
};

} // namespace velmora

Q_DECLARE_METATYPE(std::shared_ptr<velmora::Reachability>)
