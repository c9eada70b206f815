// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

namespace velmora {

/// A request's body that can be read once. The network manager sends a request again by itself
/// when the connection breaks without a reply; that begins with going back to the start of the
/// body, and when this cannot be done the request fails before anything goes out again.
class OneTimeBody final : public QIODevice {
    Q_OBJECT

public:
    /// @param bytes may be empty
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
