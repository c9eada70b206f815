// SPDX-License-Identifier: Apache-2.0
#include "adserver/RecordedRequest.h"

#include <QtCore/QUrl>

namespace velmora::adserver {

QString RecordedRequest::path() const {
    const qsizetype mark = target.indexOf('?');
    return QUrl::fromPercentEncoding(mark < 0 ? target : target.left(mark));
}

QByteArray RecordedRequest::header(const QByteArray &name) const {
    for (const auto &[key, value] : headers)
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    return {};
}

RecordedRequest RecordedRequest::fromWire(const QByteArray &bytes) {
    RecordedRequest request;
    request.raw = bytes;
    const qsizetype headEnd = bytes.indexOf("\r\n\r\n");
    const QByteArray head = headEnd < 0 ? bytes : bytes.left(headEnd);
    if (headEnd >= 0)
        request.body = bytes.mid(headEnd + 4);

    QList<QByteArray> lines = head.split('\n');
    for (QByteArray &line : lines)
        if (line.endsWith('\r'))
            line.chop(1);
    const QList<QByteArray> words = lines.takeFirst().split(' ');
    if (words.size() == 3) {
        request.method = words[0];
        request.target = words[1];
        request.version = words[2];
    }
    for (const QByteArray &line : std::as_const(lines)) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0)
            request.headers.append({line.left(colon), line.mid(colon + 1).trimmed()});
    }
    return request;
}

} // namespace velmora::adserver
