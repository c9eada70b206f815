// SPDX-License-Identifier: Apache-2.0
#include "Deployment.h"

#include <QtCore/QFile>
#include <QtCore/QtGlobal>

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

// Not under ProcessRoot: a test chooses its servers first and then starts fresh processes.
std::optional<Deployment> s_values;

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
    if (!s_values)
        s_values = withEnvironment(builtIn());
    return *s_values;
}

void Deployment::replace(std::optional<Deployment> values) {
    s_values = std::move(values);
}

} // namespace velmora
