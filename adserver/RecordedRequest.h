// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <utility>

namespace velmora::adserver {

/// One request as it arrived, after TLS. `raw` is exactly what came over the wire; the other
/// members are slices of it, neither decoded nor normalised.
struct RecordedRequest {
    QByteArray method;  ///< "POST"; empty if not even a request line arrived
    QByteArray target;  ///< "/lookup?id=1", as sent
    QByteArray version; ///< "HTTP/1.1"
    /// Names with their spelling and values without the blanks around them, in order of arrival.
    QList<std::pair<QByteArray, QByteArray>> headers;
    /// What followed the blank line. Bodies are read by their Content-Length; the server refuses
    /// chunked requests (411).
    QByteArray body;
    QByteArray raw; ///< request line, headers, blank line and body

    /// The target without its query, percent-decoded; this is what patterns are matched against.
    QString path() const;

    /// The value of the first header of that name (compared without case); empty if absent.
    QByteArray header(const QByteArray &name) const;

    /// Takes a request apart. Never fails: what is missing or malformed stays empty.
    static RecordedRequest fromWire(const QByteArray &bytes);
};

} // namespace velmora::adserver
