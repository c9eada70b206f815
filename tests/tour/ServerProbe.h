// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"

#include <QtCore/QStringList>

namespace demo::tour {

/// Asks the demo's ad server what it received and what it serves.
class ServerProbe {
public:
    explicit ServerProbe(velmora::adserver::AdServer &server) : m_server(server) {}

    /// Number of requests so far for a path; a * at its end stands for any ending.
    int requests(const QString &path = "*") const;

    /// The values under a key of the campaign's ads of a placement ("standard" or "video").
    QStringList campaignValues(const QString &placement, const QString &key) const;

    /// Serves the campaign's ad table without its videos from now on.
    void withholdVideos();

private:
    velmora::adserver::AdServer &m_server;
};

} // namespace demo::tour
