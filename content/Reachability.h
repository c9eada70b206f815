#pragma once

#include "platform/RouteMonitor.h"

#include <QtCore/QMetaType>
#include <QtCore/QUrl>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

namespace velmora {

enum NetworkStatus {
    NetworkStatusNone = 0,
    NetworkStatusCellular = 1, ///< never the answer on a desktop
    NetworkStatusWiFi = 2,     ///< any network, wired ones too
};

/// The RouteFlag bits of a target.
using ReachabilityFlags = RouteFlags;

/// Watches whether one target can be reached. Idle after construction; from startNotifier() on
/// it keeps itself alive, until stopNotifier(). Any thread may call it and none waits for the
/// network. Every query reads the current flags; when they cannot be read the answer is false,
/// 0 or the empty set. A host name's flags are 0 until its look-up has ended.
class Reachability : public std::enable_shared_from_this<Reachability> {
public:
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

    /// Nothing when the target can never be reached, here and in all constructors below: not
    /// an address, or a name that is empty or too long.
    static std::shared_ptr<Reachability> reachabilityWithHostname(const QString &hostname);
    static std::shared_ptr<Reachability> reachabilityWithHostName(const QString &hostname);
    static std::shared_ptr<Reachability> reachabilityWithAddress(const QHostAddress &address,
                                                                 quint16 port = 0);
    /// The deployment's probe address: the internet in general, unless it was replaced. Main
    /// thread.
    static std::shared_ptr<Reachability> reachabilityForInternetConnection();
    static std::shared_ptr<Reachability> reachabilityForLocalWiFi();
    /// The URL's address and port (443 for https and else 80, if the URL has none) when its
    /// host is a dotted IPv4 address, otherwise its host name.
    static std::shared_ptr<Reachability> reachabilityWithURL(const QUrl &url);

    /// True for the text of a dotted IPv4 address.
    static bool isIpAddress(const QString &host);

    ~Reachability();

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

    bool isReachable() const;
    bool isReachableViaWWAN() const;
    bool isReachableViaWiFi() const;
    bool connectionRequired() const;
    bool isConnectionRequired() const;
    bool isConnectionOnDemand() const;
    bool isInterventionRequired() const;
    NetworkStatus currentReachabilityStatus() const;
    /// "Cellular", "WiFi" or "No Connection", in the host's translation (context "Velmora").
    QString currentReachabilityString() const;
    ReachabilityFlags reachabilityFlags() const;
    /// The flags as text, for example "XR -------".
    QString currentReachabilityFlags() const;
    QString description() const;

    /// What is watched.
    const RouteTarget &target() const;

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
