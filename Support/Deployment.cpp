// SPDX-License-Identifier: Apache-2.0
#include "Deployment.h"

#include "HostDeployment.h"
#include "MainQueue.h"

#include <Velmora/Bundle.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <atomic>
#include <forward_list>

namespace velmora {

namespace {

Deployment withEnvironment(Deployment values) {
#ifdef VELMORA_DEVELOPER_BUILD
    const auto take = [](const char *name, QString &value) {
        if (qEnvironmentVariableIsSet(name))
            value = qEnvironmentVariable(name);
    };
    take("VELMORA_AD_SERVER_URL", values.acsURL);
    take("VELMORA_STORE_LOOKUP_URL", values.storeLookupURL);
    take("VELMORA_REACHABILITY_PROBE", values.reachabilityProbe);
    QFile authority(qEnvironmentVariable("VELMORA_AD_SERVER_CA"));
    if (!authority.fileName().isEmpty() && authority.open(QIODevice::ReadOnly))
        values.adServerAuthorities = authority.readAll();
#endif
    return values;
}

struct Values {
    Deployment deployment;
    bool isFinal = false;
};

// Not under ProcessRoot: a test chooses its servers first and then starts fresh processes.
std::atomic<const Values *> s_values = nullptr;

// Values that were replaced stay, because other threads may still be reading them. Main thread.
void use(Values values) {
    static auto &all = *new std::forward_list<Values>;
    s_values = &all.emplace_front(std::move(values));
}

} // namespace

Deployment Deployment::builtIn() {
    Deployment values;
    values.acsURL = QStringLiteral(VELMORA_AD_SERVER_URL);
    values.storeHost = QStringLiteral(VELMORA_STORE_HOST);
    values.storeWebLabel = QStringLiteral(VELMORA_STORE_WEB_LABEL);
    values.storeClassicLabel = QStringLiteral(VELMORA_STORE_CLASSIC_LABEL);
    values.storeLookupURL = QStringLiteral(VELMORA_STORE_LOOKUP_URL);
    values.reachabilityProbe = QStringLiteral(VELMORA_REACHABILITY_PROBE);
    return values;
}

const Deployment &Deployment::current() {
    const Values *values = s_values;
    // Without an application object the host's Info.plist is not found.
    const bool canFindHost = QCoreApplication::instance() != nullptr;
    if (!values || (!values->isFinal && canFindHost && MainQueue::isMainThread())) {
        Deployment deployment = builtIn();
        HostDeployment::apply(Bundle::mainBundle(), &deployment);
        use({withEnvironment(deployment), canFindHost});
        values = s_values;
    }
    return values->deployment;
}

void Deployment::replace(std::optional<Deployment> values) {
    if (values)
        use({*values, true});
    else
        s_values = nullptr;
}

} // namespace velmora
