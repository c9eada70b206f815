// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/BenchServer.h"

#include <QtCore/QFile>

namespace velmora::bench {

BenchServer::BenchServer() {
    const QString url = m_server.start();
    QFile authority(m_folder.filePath(QStringLiteral("ca.pem")));
    if (url.isEmpty() || !authority.open(QIODevice::WriteOnly))
        qFatal("the ad server did not start");
    authority.write(m_server.caPem());
    m_environment.insert(QStringLiteral("VELMORA_AD_SERVER_URL"), url);
    m_environment.insert(QStringLiteral("VELMORA_AD_SERVER_CA"), authority.fileName());
    m_environment.insert(QStringLiteral("VELMORA_REACHABILITY_PROBE"), QStringLiteral("127.0.0.1"));
    for (const char *place : {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        m_environment.insert(QLatin1String(place), m_folder.filePath(QLatin1String(place)));
}

} // namespace velmora::bench
