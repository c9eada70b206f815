// SPDX-License-Identifier: Apache-2.0
#include "RouteMonitor.h"

#include <QtCore/QUrl>

#include <SystemConfiguration/SystemConfiguration.h>
#include <arpa/inet.h>
#include <dispatch/dispatch.h>
#include <netinet/in.h>

#include <atomic>
#include <cstring>
#include <mutex>
#include <utility>

namespace velmora {

static_assert(ReachabilityFlags(ReachabilityFlagReachable) == kSCNetworkReachabilityFlagsReachable);
static_assert(ReachabilityFlags(ReachabilityFlagConnectionRequired) ==
              kSCNetworkReachabilityFlagsConnectionRequired);
static_assert(ReachabilityFlags(ReachabilityFlagIsDirect) == kSCNetworkReachabilityFlagsIsDirect);

namespace {

SCNetworkReachabilityRef createWithAddress(const RouteTarget &target) {
    sockaddr_storage storage{};
    if (const std::optional<in_addr> ipv4 = target.address.ipv4()) {
        sockaddr_in address{};
        address.sin_len = sizeof address;
        address.sin_family = AF_INET;
        address.sin_port = htons(target.port);
        address.sin_addr.s_addr = ipv4->s_addr;
        std::memcpy(&storage, &address, sizeof address);
    } else {
        sockaddr_in6 address{};
        address.sin6_len = sizeof address;
        address.sin6_family = AF_INET6;
        address.sin6_port = htons(target.port);
        address.sin6_addr = target.address.ipv6();
        std::memcpy(&storage, &address, sizeof address);
    }
    return SCNetworkReachabilityCreateWithAddress(kCFAllocatorDefault,
                                                  reinterpret_cast<const sockaddr *>(&storage));
}

ReachabilityFlags readFlags(SCNetworkReachabilityRef service) {
    SCNetworkReachabilityFlags flags = 0;
    return SCNetworkReachabilityGetFlags(service, &flags) ? flags : 0;
}

QString lastError() {
    return QString::fromUtf8(SCErrorString(SCError()));
}

// The system's reachability handle, and the flags that it reported last. Shared with the dispatch
// queues, so that it outlives a monitor that is destroyed while they use it.
struct Service {
    explicit Service(SCNetworkReachabilityRef reference) : handle(reference) {}
    ~Service() { CFRelease(handle); }
    Service(const Service &) = delete;
    Service &operator=(const Service &) = delete;

    const SCNetworkReachabilityRef handle;
    bool isName = false;
    std::atomic<ReachabilityFlags> known = 0;
    std::atomic<bool> reading = false;
};

using ServicePtr = std::shared_ptr<Service>;

// In the background, because reading the flags of a host name may wait for the name service.
void readInBackground(const ServicePtr &service) {
    if (service->reading.exchange(true))
        return;
    const auto read = [](void *context) {
        const std::unique_ptr<ServicePtr> held(static_cast<ServicePtr *>(context));
        (*held)->known = readFlags((*held)->handle);
        (*held)->reading = false;
    };
    dispatch_async_f(dispatch_get_global_queue(QOS_CLASS_UTILITY, 0), new ServicePtr(service),
                     read);
}

// The state from start() to stop(). The reachability handle's context keeps it while a callback
// runs.
struct Watch {
    ServicePtr service;
    RouteMonitor::Callback callback;
    ReachabilityFlags last = 0; // after start() used on the queue only
    std::atomic<bool> stopped = false;
};

using WatchPtr = std::shared_ptr<Watch>;

const void *retainWatch(const void *info) {
    return new WatchPtr(*static_cast<const WatchPtr *>(info));
}

void releaseWatch(const void *info) {
    delete static_cast<const WatchPtr *>(info);
}

void ReachabilityCallback(SCNetworkReachabilityRef, SCNetworkReachabilityFlags flags, void *info) {
    const WatchPtr watch = *static_cast<const WatchPtr *>(info);
    watch->service->known = flags;
    if (watch->stopped || flags == watch->last)
        return;
    watch->last = flags;
    watch->callback(flags);
}

} // namespace

struct RouteMonitor::Private {
    RouteTarget target;
    ServicePtr service;
    std::mutex mutex;
    WatchPtr watch;
    dispatch_queue_t queue = nullptr;

    // With the mutex held.
    void detach() {
        if (watch)
            std::exchange(watch, nullptr)->stopped = true;
        SCNetworkReachabilitySetCallback(service->handle, nullptr, nullptr);
        SCNetworkReachabilitySetDispatchQueue(service->handle, nullptr);
        if (queue)
            dispatch_release(std::exchange(queue, nullptr));
    }
};

ReachabilityFlags RouteMonitor::query(const IpAddress &target) {
    if (target.isNull())
        return 0;
    SCNetworkReachabilityRef handle = createWithAddress({target, 0, {}});
    if (!handle)
        return 0;
    const ReachabilityFlags flags = readFlags(handle);
    CFRelease(handle);
    return flags;
}

std::unique_ptr<RouteMonitor> RouteMonitor::create(const RouteTarget &target) {
    auto d = std::make_unique<Private>();
    d->target = target;
    if (d->target.address.isNull())
        d->target.address = IpAddress(target.hostName); // the name may spell an address
    const bool isName = d->target.address.isNull();
    SCNetworkReachabilityRef handle = nullptr;
    if (isName) {
        constexpr qsizetype LongestName = 254; // with the final dot
        const QByteArray utf8 = target.hostName.toUtf8();
        const QByteArray name =
            utf8.size() == target.hostName.size() ? utf8 : QUrl::toAce(target.hostName);
        if (!name.isEmpty() && name.size() <= LongestName && !name.contains('\0'))
            handle = SCNetworkReachabilityCreateWithName(kCFAllocatorDefault, name.constData());
    } else {
        handle = createWithAddress(d->target);
    }
    if (!handle)
        return nullptr;
    d->service = std::make_shared<Service>(handle);
    d->service->isName = isName;
    if (isName)
        readInBackground(d->service);
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
    if (!m_d->service->isName)
        return readFlags(m_d->service->handle);
    const std::lock_guard lock(m_d->mutex);
    if (!m_d->watch)
        readInBackground(m_d->service);
    return m_d->service->known;
}

RouteMonitor::StartResult RouteMonitor::start(Callback callback, QString *error) {
    const std::lock_guard lock(m_d->mutex);
    m_d->detach();
    const ServicePtr &service = m_d->service;
    auto watch = std::make_shared<Watch>();
    watch->service = service;
    watch->callback = std::move(callback);
    watch->last = service->isName ? service->known.load() : readFlags(service->handle);

    // The service copies the context and keeps a reference of its own by retainWatch().
    SCNetworkReachabilityContext context{0, &watch, retainWatch, releaseWatch, nullptr};
    if (!SCNetworkReachabilitySetCallback(service->handle, ReachabilityCallback, &context)) {
        if (error)
            *error = lastError();
        return StartResult::CallbackRefused;
    }
    m_d->queue = dispatch_queue_create("velmora.reachability", DISPATCH_QUEUE_SERIAL);
    if (!SCNetworkReachabilitySetDispatchQueue(service->handle, m_d->queue)) {
        if (error)
            *error = lastError();
        m_d->detach();
        return StartResult::QueueRefused;
    }
    m_d->watch = std::move(watch);
    return StartResult::Started;
}

void RouteMonitor::stop() {
    const std::lock_guard lock(m_d->mutex);
    m_d->detach();
}

} // namespace velmora
