// SPDX-License-Identifier: Apache-2.0
#include "RouteMonitor.h"

#include "BackgroundThread.h"
#include "HostLookup.h"
#include "NetlinkRoutes.h"
#include "ProcessRoot.h"

#include <QtCore/QUrl>

#include <linux/rtnetlink.h>
#include <poll.h>

#include <atomic>
#include <cerrno>
#include <mutex>

namespace velmora {

namespace {

// A change of the network causes many events at once. They are collected for this long.
constexpr int SettleMilliseconds = 20;

// After a change of routes the name service often needs a few seconds until it answers.
constexpr int LookupRetries = 4;
constexpr int FirstRetryMilliseconds = 1000;

ReachabilityFlags flagsOf(NetlinkRoutes &routes, const RouteTarget &target,
                          const HostLookup *lookup) {
    if (!lookup)
        return routes.flags(target.address);
    ReachabilityFlags flags = 0;
    for (const IpAddress &address : lookup->addresses())
        flags = NetlinkRoutes::better(flags, routes.flags(address));
    return flags;
}

// The name as getaddrinfo() takes it; empty when it is not a possible host name.
QByteArray resolverName(const QString &name) {
    constexpr qsizetype LongestName = 254; // with the final dot
    const QByteArray utf8 = name.toUtf8();
    const QByteArray result = utf8.size() == name.size() ? utf8 : QUrl::toAce(name);
    return result.size() <= LongestName && !result.contains('\0') ? result : QByteArray();
}

// The watching thread's state, from start() to stop(). The thread shares it with the monitor, and
// keeps it when the monitor is destroyed first.
class Watch {
public:
    Watch(const RouteTarget &target, std::shared_ptr<HostLookup> lookup,
          RouteMonitor::Callback callback)
        : m_target(target), m_lookup(std::move(lookup)), m_callback(std::move(callback)) {}

    // Subscribes before it reads the flags, so that no change in between is missed.
    bool prepare() {
        if (!m_routes.isOpen() || !m_events.isOpen() ||
            !m_events.join({RTNLGRP_LINK, RTNLGRP_IPV4_IFADDR, RTNLGRP_IPV6_IFADDR,
                            RTNLGRP_IPV4_ROUTE, RTNLGRP_IPV6_ROUTE, RTNLGRP_IPV4_RULE,
                            RTNLGRP_IPV6_RULE}))
            return false;
        m_last = flagsOf(m_routes, m_target, m_lookup.get());
        return true;
    }

    bool canWake() const { return m_wake->isValid(); }

    void stop() {
        m_stopped = true;
        m_wake->signal();
    }

    void run() {
        if (m_lookup)
            m_lookup->begin(m_wake);
        int retries = 0;
        int timeout = -1;
        for (;;) {
            const WakeReason reason = wait(true, timeout);
            if (reason == WakeReason::Network) {
                wait(false, SettleMilliseconds);
                m_events.drain();
                retries = 0;
            }
            if (m_stopped)
                return;
            if (m_lookup && reason != WakeReason::Signal)
                m_lookup->begin(m_wake);
            m_wake->clear();
            report();
            timeout = -1;
            if (m_lookup && m_lookup->hasFailed() && retries < LookupRetries)
                timeout = FirstRetryMilliseconds << retries++;
        }
    }

private:
    enum class WakeReason { Signal, Network, Timeout };

    WakeReason wait(bool withNetwork, int timeout) {
        pollfd sources[] = {{m_wake->descriptor(), POLLIN, 0}, {m_events.descriptor(), POLLIN, 0}};
        const int ready = poll(sources, withNetwork ? 2 : 1, timeout);
        if (ready == 0)
            return WakeReason::Timeout;
        return ready > 0 && sources[1].revents ? WakeReason::Network : WakeReason::Signal;
    }

    void report() {
        const ReachabilityFlags flags = flagsOf(m_routes, m_target, m_lookup.get());
        if (m_stopped || flags == m_last || ProcessRoot::hasEnded())
            return;
        m_last = flags;
        m_callback(flags);
    }

    const RouteTarget m_target;
    const std::shared_ptr<HostLookup> m_lookup;
    const RouteMonitor::Callback m_callback;
    const std::shared_ptr<WakeEvent> m_wake = std::make_shared<WakeEvent>();
    NetlinkSocket m_events;
    NetlinkRoutes m_routes;
    ReachabilityFlags m_last = 0;
    std::atomic<bool> m_stopped = false;
};

} // namespace

struct RouteMonitor::Private {
    RouteTarget target;
    std::shared_ptr<HostLookup> lookup; // null for an address
    std::mutex mutex;
    std::shared_ptr<Watch> watch;

    // With the mutex held.
    void detach() {
        if (watch)
            watch->stop();
        watch.reset();
    }
};

ReachabilityFlags RouteMonitor::query(const IpAddress &target) {
    return NetlinkRoutes().flags(target);
}

std::unique_ptr<RouteMonitor> RouteMonitor::create(const RouteTarget &target) {
    auto d = std::make_unique<Private>();
    d->target = target;
    if (d->target.address.isNull())
        d->target.address = IpAddress(target.hostName); // the name may spell an address
    if (d->target.address.isNull()) {
        const QByteArray name = resolverName(target.hostName);
        if (name.isEmpty())
            return nullptr;
        d->lookup = std::make_shared<HostLookup>(name);
        d->lookup->begin(nullptr);
    }
    return std::unique_ptr<RouteMonitor>(new RouteMonitor(std::move(d)));
}

RouteMonitor::RouteMonitor(std::unique_ptr<Private> state) : m_d(std::move(state)) {}

RouteMonitor::~RouteMonitor() {
    stop();
}

const RouteTarget &RouteMonitor::target() const {
    return m_d->target;
}

ReachabilityFlags RouteMonitor::flags() const {
    if (m_d->lookup && m_d->lookup->hasFailed())
        m_d->lookup->begin(nullptr);
    NetlinkRoutes routes;
    return flagsOf(routes, m_d->target, m_d->lookup.get());
}

RouteMonitor::StartResult RouteMonitor::start(Callback callback, QString *error) {
    const std::lock_guard lock(m_d->mutex);
    m_d->detach();
    auto watch = std::make_shared<Watch>(m_d->target, m_d->lookup, std::move(callback));
    const auto reportErrno = [error] {
        if (error)
            *error = qt_error_string(errno);
    };
    if (!watch->prepare()) {
        reportErrno();
        return StartResult::CallbackRefused;
    }
    if (!watch->canWake()) {
        reportErrno();
        return StartResult::QueueRefused;
    }
    if (!startBackgroundThread(
            "velmora-routes", AtExit::Ignores, [watch] { watch->run(); }, error))
        return StartResult::QueueRefused;
    m_d->watch = std::move(watch);
    return StartResult::Started;
}

void RouteMonitor::stop() {
    const std::lock_guard lock(m_d->mutex);
    m_d->detach();
}

} // namespace velmora
