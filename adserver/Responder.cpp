// SPDX-License-Identifier: Apache-2.0
#include "adserver/Responder.h"

#include "adserver/PathPattern.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QUrlQuery>

#include <algorithm>
#include <optional>

namespace velmora::adserver {

namespace {

constexpr qint64 BodyLimit = 16 * 1024 * 1024;
constexpr int WaitStepMs = 20;

QByteArray contentTypeOf(const QString &path) {
    static const std::pair<const char *, const char *> types[] = {
        {".gif", "image/gif"},       {".png", "image/png"},   {".jpg", "image/jpeg"},
        {".jpeg", "image/jpeg"},     {".mp4", "video/mp4"},   {".m4v", "video/mp4"},
        {".mov", "video/quicktime"}, {".webm", "video/webm"}, {".json", "application/json"}};
    for (const auto &[suffix, type] : types)
        if (path.endsWith(QLatin1String(suffix), Qt::CaseInsensitive))
            return type;
    return "application/octet-stream";
}

// The status code with which the request's body is refused; nothing if it can be read.
std::optional<int> bodyRefusal(const RecordedRequest &request, qint64 &length) {
    length = 0;
    if (!request.header("Transfer-Encoding").isEmpty())
        return 411;
    const QByteArray text = request.header("Content-Length");
    if (text.isEmpty())
        return std::nullopt;
    bool ok = false;
    length = text.toLongLong(&ok);
    if (!ok || length < 0)
        return 400;
    return length > BodyLimit ? std::optional(413) : std::nullopt;
}

// With a content provider the library does not compress the body. For an empty body it would send
// no Content-Length.
void setBody(httplib::Response &response, const QByteArray &contentType, const QByteArray &body) {
    if (body.isEmpty())
        return;
    response.set_content_provider(static_cast<size_t>(body.size()), contentType.toStdString(),
                                  [body](size_t offset, size_t length, httplib::DataSink &sink) {
                                      return sink.write(body.constData() + offset, length);
                                  });
}

void setTruncatedBody(httplib::Response &response, const QByteArray &contentType,
                      const QByteArray &body) {
    if (body.isEmpty())
        return;
    response.set_content_provider(static_cast<size_t>(body.size()), contentType.toStdString(),
                                  [body](size_t offset, size_t, httplib::DataSink &sink) {
                                      const size_t half = static_cast<size_t>(body.size()) / 2;
                                      return offset < half &&
                                             sink.write(body.constData() + offset, half - offset);
                                  });
}

void setHugeBody(httplib::Response &response, qint64 size) {
    if (size <= 0)
        return;
    static const QByteArray block(64 * 1024, 'x');
    response.set_content_provider(static_cast<size_t>(size), "application/octet-stream",
                                  [](size_t, size_t length, httplib::DataSink &sink) {
                                      return sink.write(
                                          block.constData(),
                                          std::min(length, static_cast<size_t>(block.size())));
                                  });
}

} // namespace

Responder::Responder(Campaign &campaign, Faults &faults, RequestLog &log)
    : m_campaign(campaign), m_faults(faults), m_log(log) {}

void Responder::respond(TlsConnection &connection, httplib::Response &response) {
    qint64 length = 0;
    const auto refusal = bodyRefusal(RecordedRequest::fromWire(connection.recorded()), length);
    const bool isComplete = !refusal && connection.readBody(length);
    const RecordedRequest request = RecordedRequest::fromWire(connection.takeRecorded());
    m_log.append(request);
    if (refusal) {
        connection.closeAfterAnswer();
        response.set_header("Connection", "close");
        response.status = *refusal;
        observe(request, QString::number(*refusal));
        return;
    }
    if (!isComplete) {
        observe(request, QStringLiteral("incomplete"));
        return;
    }

    const Faults::Active active = m_faults.take(request.path());
    const Fault &fault = active.fault;
    const bool hangs = fault.kind == Fault::Kind::Hang;
    if (hangs)
        observe(request, QStringLiteral("hang"));
    if (!waitOut(connection, active)) {
        connection.breakOff();
        if (!hangs)
            observe(request, QStringLiteral("closed while delayed"));
        return;
    }

    const QString outcome = apply(fault, answerTo(request), connection, response);
    if (!hangs)
        observe(request, outcome);
}

// Fills in the answer as the fault changes it. Returns the outcome for the observer.
QString Responder::apply(const Fault &fault, const Answer &answer, TlsConnection &connection,
                         httplib::Response &response) const {
    response.status = answer.status;
    switch (fault.kind) {
    case Fault::Kind::Stale:
        if (connection.isReused()) {
            connection.breakOff();
            return QStringLiteral("stale");
        }
        [[fallthrough]];
    case Fault::Kind::None:
    case Fault::Kind::Hang:
        setBody(response, answer.contentType, answer.body);
        return QString::number(answer.status);
    case Fault::Kind::Status:
        response.status = fault.status;
        setBody(response, "text/plain", fault.body);
        return QStringLiteral("%1 instead of %2").arg(fault.status).arg(answer.status);
    case Fault::Kind::Body:
        response.status = 200;
        setBody(response, answer.contentType, fault.body);
        return QStringLiteral("200 wrong body");
    case Fault::Kind::Truncated:
        connection.closeAfterAnswer();
        setTruncatedBody(response, answer.contentType, answer.body);
        return QStringLiteral("%1 truncated").arg(answer.status);
    case Fault::Kind::Huge:
        response.status = 200;
        setHugeBody(response, fault.size);
        return QStringLiteral("200 huge");
    case Fault::Kind::Reset:
        connection.breakOffWithReset();
        return QStringLiteral("reset");
    case Fault::Kind::Close:
        connection.breakOff();
        return QStringLiteral("close");
    case Fault::Kind::Redirect:
        response.set_redirect(fault.location.toStdString());
        return QStringLiteral("302 to ") + fault.location;
    }
    return {};
}

void Responder::recordMalformed(const QByteArray &bytes) {
    const RecordedRequest request = RecordedRequest::fromWire(bytes);
    m_log.append(request);
    observe(request, QStringLiteral("malformed"));
}

Responder::Answer Responder::answerTo(const RecordedRequest &request) const {
    const QString path = request.path();
    const bool isGet = request.method == "GET" || request.method == "HEAD";
    if (request.method == "POST" && path == QLatin1String("/api/v1/banners"))
        return {200, "application/json", m_campaign.reply()};
    if (matchesPath(QStringLiteral("/event*"), path))
        return {204, {}, {}};
    if (isGet && path == QLatin1String("/lookup")) {
        const qsizetype mark = request.target.indexOf('?');
        return lookupAnswer(mark < 0 ? QByteArray() : request.target.mid(mark + 1));
    }
    if (isGet) {
        if (const auto bytes = m_campaign.media(path))
            return {200, contentTypeOf(path), *bytes};
    }
    return {404, "text/plain", "not found\n"};
}

Responder::Answer Responder::lookupAnswer(const QByteArray &query) const {
    const QString id = QUrlQuery(QString::fromUtf8(query))
                           .queryItemValue(QStringLiteral("id"), QUrl::FullyDecoded);
    QJsonArray results;
    if (const auto name = m_campaign.lookupName(id))
        results.append(QJsonObject{{QStringLiteral("trackName"), *name}});
    const QJsonObject object{{QStringLiteral("resultCount"), results.size()},
                             {QStringLiteral("results"), results}};
    return {200, "application/json", QJsonDocument(object).toJson(QJsonDocument::Compact)};
}

// Waits until the request's delay or hang is over. False if the client or stop() has closed the
// connection meanwhile.
bool Responder::waitOut(const TlsConnection &connection, const Faults::Active &active) const {
    const bool hangs = active.fault.kind == Fault::Kind::Hang;
    int leftMs = active.fault.delayMs;
    while ((hangs || leftMs > 0) && !*active.cleared) {
        const int stepMs = hangs ? WaitStepMs : std::min(leftMs, WaitStepMs);
        if (connection.waitForClose(stepMs))
            return false;
        leftMs -= stepMs;
    }
    return true;
}

void Responder::observe(const RecordedRequest &request, const QString &outcome) const {
    if (m_observer)
        m_observer(request, outcome);
}

} // namespace velmora::adserver
