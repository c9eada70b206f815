// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <utility>

namespace velmora::adserver {

/// One request as it arrived, after decryption. `raw` holds all of its bytes; the other members are
/// parts of it, neither decoded nor normalised.
struct RecordedRequest {
    QByteArray method;  ///< "POST"; empty if the request line is incomplete
    QByteArray target;  ///< "/lookup?id=1", as sent
    QByteArray version; ///< "HTTP/1.1"
    /// Names as spelled and values without the blanks around them, in the order of arrival.
    QList<std::pair<QByteArray, QByteArray>> headers;
    /// The bytes after the blank line, as many as Content-Length says. Chunked bodies are refused
    /// (411).
    QByteArray body;
    QByteArray raw; ///< request line, headers, blank line and body

    /// The target without its query, percent-decoded: the path that patterns are matched with.
    QString path() const;

    /// The value of the first header of that name (compared without case); empty if absent.
    QByteArray header(const QByteArray &name) const;

    /// Parses a request. Members for which the bytes are missing or malformed stay empty.
    static RecordedRequest fromWire(const QByteArray &bytes);
};

} // namespace velmora::adserver
