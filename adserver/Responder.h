// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"
#include "adserver/TlsConnection.h"

namespace velmora::adserver {

/// Answers requests: records each, takes the normal answer from the campaign and applies the fault
/// in force. Internal to the ad server; called from all of its threads.
class Responder {
public:
    /// The references must outlive the responder.
    Responder(Campaign &campaign, Faults &faults, RequestLog &log);

    /// Must not be called while the server runs.
    void setObserver(const AdServer::Observer &observer) { m_observer = observer; }

    /// Reads the request's body, records the request and fills in the response.
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
    QString apply(const Fault &fault, const Answer &answer, TlsConnection &connection,
                  httplib::Response &response) const;
    bool waitOut(const TlsConnection &connection, const Faults::Active &active) const;
    void observe(const RecordedRequest &request, const QString &outcome) const;

    Campaign &m_campaign;
    Faults &m_faults;
    RequestLog &m_log;
    AdServer::Observer m_observer;
};

} // namespace velmora::adserver
