// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"

#include <QtCore/QString>
#include <QtCore/QTemporaryFile>

namespace demo {

/// The development ad server inside the demo's own process, and the environment that leads the
/// framework to it.
class DemoServer {
public:
    /// Starts on a free port and sets the environment. To be called before the framework's
    /// first use. @return false with errorString() set when it could not.
    bool start(const QString &campaignFolder);
    QString errorString() const { return m_error; }

    /// Stops the server as if it had gone away, or brings it back at the same address.
    void setRunning(bool on);
    bool isRunning() const { return m_server.isRunning(); }

    /// From now on there are no videos in the ad table.
    void withholdVideos();

    /// The campaign's videos, as local files.
    QStringList clips() const;

    /// Requests that arrived so far, for a path or a pattern with * at its end.
    int requests(const QString &path = QStringLiteral("*"));

    /// What the campaign's ads of a placement ("standard", "video") say under a key.
    QStringList campaignValues(const QString &placement, const QString &key);

private:
    velmora::adserver::AdServer m_server;
    QString m_folder;
    QTemporaryFile m_authority;
    quint16 m_port = 0;
    QString m_error;
};

} // namespace demo
