// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Reachability.h>

#include "Deployment.h"
#include "MainQueue.h"
#include "RouteMonitor.h"
#include "ServerName.h"

#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Support.h>

#include <QtCore/QCoreApplication>

namespace velmora {

namespace {

// Lets a host convert the notification's object to text without using this class. Qt keeps the
// converter until the program ends, so this is done once and not under ProcessRoot.
void registerDescription() {
    static const bool registered =
        QMetaType::registerConverter<std::shared_ptr<Reachability>, QString>(
            [](const std::shared_ptr<Reachability> &monitor) {
                return monitor ? monitor->description() : QString();
            });
    Q_UNUSED(registered)
}

} // namespace

std::shared_ptr<Reachability> Reachability::make(const RouteTarget &target) {
    std::unique_ptr<RouteMonitor> monitor = RouteMonitor::create(target);
    if (!monitor)
        return nullptr;
    registerDescription();
    return std::shared_ptr<Reachability>(new Reachability(std::move(monitor)));
}

Reachability::Reachability(std::unique_ptr<RouteMonitor> reachabilityRef)
    : m_reachabilityRef(std::move(reachabilityRef)) {}

Reachability::~Reachability() = default;

std::shared_ptr<Reachability> Reachability::reachabilityWithHostname(const QString &hostname) {
    return make({{}, 0, hostname});
}

std::shared_ptr<Reachability> Reachability::reachabilityWithHostName(const QString &hostname) {
    return reachabilityWithHostname(hostname);
}

std::shared_ptr<Reachability> Reachability::reachabilityWithAddress(const QString &address,
                                                                    quint16 port) {
    return make({IpAddress(address), port, {}});
}

std::shared_ptr<Reachability> Reachability::reachabilityForInternetConnection() {
    return reachabilityWithAddress(Deployment::current().reachabilityProbe);
}

std::shared_ptr<Reachability> Reachability::reachabilityForLocalWiFi() {
    return reachabilityWithAddress(QStringLiteral("169.254.0.0"));
}

std::shared_ptr<Reachability> Reachability::reachabilityWithURL(const QUrl &url) {
    const QString host = url.host();
    if (!isIpAddress(host))
        return reachabilityWithHostname(host);
    const int defaultPort = url.scheme() == QLatin1String("https") ? 443 : 80;
    return reachabilityWithAddress(host, static_cast<quint16>(url.port(defaultPort)));
}

bool Reachability::isIpAddress(const QString &host) {
    return ServerName::isIPv4Address(host);
}

bool Reachability::startNotifier() {
    const std::lock_guard lock(m_notifierMutex);
    if (m_reachabilityObject)
        return true;
    const auto changed = [weak = weak_from_this()](ReachabilityFlags flags) {
        if (const auto self = weak.lock())
            self->reachabilityChanged(flags);
    };
    QString error;
    // The log lines name another system's functions; they stay as hosts know them.
    switch (m_reachabilityRef->start(changed, &error)) {
    case RouteMonitor::StartResult::CallbackRefused:
        LOG(QStringLiteral("SCNetworkReachabilitySetCallback() failed: %1").arg(error));
        return false;
    case RouteMonitor::StartResult::QueueRefused:
        LOG(QStringLiteral("SCNetworkReachabilitySetDispatchQueue() failed: %1").arg(error));
        return false;
    case RouteMonitor::StartResult::Started:
        break;
    }
    m_reachabilityObject = shared_from_this();
    return true;
}

void Reachability::stopNotifier() {
    std::shared_ptr<Reachability> last; // released after the lock; may destroy this object
    const std::lock_guard lock(m_notifierMutex);
    m_reachabilityRef->stop();
    last.swap(m_reachabilityObject);
}

void Reachability::reachabilityChanged(ReachabilityFlags flags) {
    if (isReachableWithFlags(flags))
        reachableBlock(this);
    else
        unreachableBlock(this);
    reachabilityBlock(this, flags);
    MainQueue::post([self = shared_from_this()] {
        NotificationCenter::defaultCenter().post(kReachabilityChangedNotification,
                                                 QVariant::fromValue(self));
    });
}

bool Reachability::isReachableWithFlags(ReachabilityFlags flags) {
    constexpr ReachabilityFlags NotYet =
        ReachabilityFlagConnectionRequired | ReachabilityFlagTransientConnection;
    return flags & ReachabilityFlagReachable && (flags & NotYet) != NotYet;
}

bool Reachability::isConnectionOnDemand(ReachabilityFlags flags) {
    return flags & ReachabilityFlagConnectionRequired &&
           flags & (ReachabilityFlagConnectionOnTraffic | ReachabilityFlagConnectionOnDemand);
}

bool Reachability::isInterventionRequired(ReachabilityFlags flags) {
    return flags & ReachabilityFlagConnectionRequired &&
           flags & ReachabilityFlagInterventionRequired;
}

QString Reachability::currentReachabilityFlags(ReachabilityFlags flags) {
    const auto mark = [flags](ReachabilityFlag bit, char letter) {
        return QLatin1Char(flags & bit ? letter : '-');
    };
    return QStringLiteral("X") + mark(ReachabilityFlagReachable, 'R') + QLatin1Char(' ') +
           mark(ReachabilityFlagConnectionRequired, 'c') +
           mark(ReachabilityFlagTransientConnection, 't') +
           mark(ReachabilityFlagInterventionRequired, 'i') +
           mark(ReachabilityFlagConnectionOnTraffic, 'C') +
           mark(ReachabilityFlagConnectionOnDemand, 'D') +
           mark(ReachabilityFlagIsLocalAddress, 'l') + mark(ReachabilityFlagIsDirect, 'd');
}

bool Reachability::isReachable() const {
    return isReachableWithFlags(reachabilityFlags());
}

bool Reachability::isReachableViaWWAN() const {
    return false;
}

bool Reachability::isReachableViaWiFi() const {
    return reachabilityFlags() & ReachabilityFlagReachable;
}

bool Reachability::connectionRequired() const {
    return reachabilityFlags() & ReachabilityFlagConnectionRequired;
}

bool Reachability::isConnectionRequired() const {
    return connectionRequired();
}

bool Reachability::isConnectionOnDemand() const {
    return isConnectionOnDemand(reachabilityFlags());
}

bool Reachability::isInterventionRequired() const {
    return isInterventionRequired(reachabilityFlags());
}

NetworkStatus Reachability::currentReachabilityStatus() const {
    return isReachable() && isReachableViaWiFi() ? NetworkStatusWiFi : NetworkStatusNone;
}

QString Reachability::currentReachabilityString() const {
    switch (currentReachabilityStatus()) {
    case NetworkStatusCellular:
        return QCoreApplication::translate("Velmora", "Cellular");
    case NetworkStatusWiFi:
        return QCoreApplication::translate("Velmora", "WiFi");
    default:
        return QCoreApplication::translate("Velmora", "No Connection");
    }
}

ReachabilityFlags Reachability::reachabilityFlags() const {
    return m_reachabilityRef->flags();
}

QString Reachability::currentReachabilityFlags() const {
    return currentReachabilityFlags(reachabilityFlags());
}

QString Reachability::description() const {
    return QStringLiteral("<Reachability: 0x%1 (%2)>")
        .arg(reinterpret_cast<quintptr>(this), 0, 16)
        .arg(currentReachabilityFlags());
}

QString Reachability::targetHost() const {
    const RouteTarget &target = m_reachabilityRef->target();
    return target.hostName.isEmpty() ? target.address.text() : target.hostName;
}

quint16 Reachability::targetPort() const {
    return m_reachabilityRef->target().port;
}

} // namespace velmora
