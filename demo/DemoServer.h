// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"

#include <QtCore/QString>
#include <QtCore/QTemporaryFile>

namespace demo {

/// Runs the development ad server inside the demo's process and sets the environment variables that
/// make the framework use it.
class DemoServer {
public:
    /// Starts the server on a free port and sets the environment. To be called before the framework
    /// is first used. @return false on failure; errorString() has the reason
    bool start(const QString &campaignFolder);
    QString errorString() const { return m_error; }

    /// Stops the server, or starts it again at the same address.
    void setRunning(bool on);
    bool isRunning() const { return m_server.isRunning(); }

    /// The campaign's videos, as paths of local files.
    QStringList clips() const;

    velmora::adserver::AdServer &adServer() { return m_server; }

private:
    velmora::adserver::AdServer m_server;
    QString m_folder;
    QTemporaryFile m_authority;
    quint16 m_port = 0;
    QString m_error;
};

} // namespace demo
