// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

namespace velmora {

/// A request's body that can be read only once, so that the request is never sent twice. When a
/// connection breaks without a reply, QNetworkAccessManager sends the request again on its own. For
/// that it resets the body to its start; this body can't be reset, so the request fails instead
/// (QNetworkReply::ContentReSendError).
class OneTimeBody final : public QIODevice {
    Q_OBJECT

public:
    OneTimeBody(QByteArray bytes, QObject *parent);

    qint64 size() const override { return m_bytes.size(); }
    bool reset() override { return false; }

protected:
    qint64 readData(char *data, qint64 most) override;
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    const QByteArray m_bytes;
};

} // namespace velmora
