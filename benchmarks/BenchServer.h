// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"

#include <QtCore/QProcessEnvironment>
#include <QtCore/QTemporaryDir>

namespace velmora::bench {

/// An ad server on this machine, and the environment for a host that uses it: with folders of its
/// own, so that the user's settings and caches stay unused. Ends the program when it does not
/// start.
class BenchServer {
public:
    BenchServer();

    adserver::AdServer &server() { return m_server; }
    const QProcessEnvironment &environment() const { return m_environment; }

    /// Where the host has its caches.
    QString cachesFolder() const { return m_folder.filePath(QStringLiteral("XDG_CACHE_HOME")); }

private:
    adserver::AdServer m_server;
    const QTemporaryDir m_folder;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

} // namespace velmora::bench
