// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"
#include "adserver/TlsConnection.h"

namespace velmora::adserver {

/// Answers one request at a time per connection: records it, works out the normal answer from the
/// campaign, and lets the fault in force spoil it. Internal; called from all server threads.
class Responder {
public:
    /// The references must outlive the responder.
    Responder(Campaign &campaign, Faults &faults, RequestLog &log);

    /// Only before the first request.
    void setObserver(const AdServer::Observer &observer) { m_observer = observer; }

    /// Reads the body, records the request, fills the response.
    void respond(TlsConnection &connection, httplib::Response &response);

    /// Records bytes that the parser has refused.
    void recordMalformed(const QByteArray &bytes);

private:
    struct Answer {
        int status = 200;
        QByteArray contentType;
        QByteArray body;
    };

    Answer answerTo(const RecordedRequest &request) const;
    Answer lookupAnswer(const QByteArray &query) const;
    QString spoil(const Fault &fault, const Answer &answer, TlsConnection &connection,
                  httplib::Response &response) const;
    bool pause(const TlsConnection &connection, const Faults::Active &active) const;
    void observe(const RecordedRequest &request, const QString &outcome) const;

    Campaign &m_campaign;
    Faults &m_faults;
    RequestLog &m_log;
    AdServer::Observer m_observer;
};

} // namespace velmora::adserver
