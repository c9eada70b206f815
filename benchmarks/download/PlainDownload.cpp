// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/download/PlainDownload.h"

#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>

namespace velmora::bench {

PlainDownload::PlainDownload(const QByteArray &authorities) {
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(QSslCertificate::fromData(authorities));
    QSslConfiguration::setDefaultConfiguration(configuration);
}

void PlainDownload::start(const QUrl &remote, const QString &path, const Completion &completion) {
    m_file = std::make_unique<QSaveFile>(path);
    if (!m_file->open(QIODevice::WriteOnly))
        qFatal("%s cannot be written", qPrintable(path));
    QNetworkReply *reply = m_manager.get(QNetworkRequest(remote));
    QObject::connect(reply, &QNetworkReply::readyRead,
                     [this, reply] { m_file->write(reply->readAll()); });
    QObject::connect(reply, &QNetworkReply::finished, [this, reply, completion] {
        reply->deleteLater();
        completion(reply->error() == QNetworkReply::NoError && m_file->commit());
    });
}

} // namespace velmora::bench
