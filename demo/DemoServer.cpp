// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoServer.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QUrl>

namespace demo {

bool DemoServer::start(const QString &campaignFolder) {
    if (!QDir(campaignFolder).exists()) {
        m_error = QStringLiteral("no such campaign folder: %1").arg(campaignFolder);
        return false;
    }
    m_folder = campaignFolder;
    m_server.campaign().setFolder(campaignFolder);
    const QString url = m_server.start();
    if (url.isEmpty()) {
        m_error = m_server.errorString();
        return false;
    }
    m_port = quint16(QUrl(url).port());
    if (!m_authority.open() || m_authority.write(m_server.caPem()) < 0 || !m_authority.flush()) {
        m_error = m_authority.errorString();
        return false;
    }
    qputenv("VELMORA_AD_SERVER_URL", url.toUtf8());
    qputenv("VELMORA_AD_SERVER_CA", QFile::encodeName(m_authority.fileName()));
    qputenv("VELMORA_STORE_LOOKUP_URL", url.toUtf8());
    qputenv("VELMORA_REACHABILITY_PROBE", "127.0.0.1");
    return true;
}

void DemoServer::setRunning(bool on) {
    if (on)
        m_server.start(m_port);
    else
        m_server.stop();
}

QStringList DemoServer::clips() const {
    QStringList files;
    QDirIterator found(m_folder, {QStringLiteral("*.mp4")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (found.hasNext())
        files.append(QFileInfo(found.next()).absoluteFilePath());
    files.sort();
    return files;
}

} // namespace demo
