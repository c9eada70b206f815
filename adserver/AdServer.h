// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/Campaign.h"
#include "adserver/CertificateAuthority.h"
#include "adserver/Faults.h"
#include "adserver/RequestLog.h"

#include <QtCore/QString>

#include <functional>
#include <memory>

namespace velmora::adserver {

/// An ad server for development and tests: HTTPS on the loopback interface, with threads of its
/// own. It records every request and can be told to misbehave. Start it in-process, let the client
/// trust caPem(), and give it the base URL.
///
///     AdServer server;
///     server.campaign().setFolder(folder);
///     const QString url = server.start();
///
/// | Request                      | Answer                                                      |
/// |------------------------------|-------------------------------------------------------------|
/// | `POST /api/v1/banners`       | the campaign's ad table                                     |
/// | `GET /lookup?id=NUMBER`      | `{"resultCount":n,"results":[{"trackName":"..."}]}`, n 0 or 1 |
/// | anything below `/event`      | 204; count them in log()                                    |
/// | `GET` or `HEAD` of a media path | the file, with byte ranges; 404 if there is none         |
/// | anything else                | 404                                                         |
///
/// Connections are kept alive (30 s). Up to 32 are served at once, further ones wait. Request
/// bodies are limited to 16 MiB (413). Call the members of this class from one thread; use what
/// campaign(), faults() and log() return from any, before, while and after the server runs. The
/// HTTP library ignores SIGPIPE for the whole process.
class AdServer {
public:
    /// Called for each request just before its answer is sent, on one of the server's threads,
    /// possibly on several at once. `outcome` is the status code and the fault,
    /// if any: "200", "200 truncated", "hang".
    using Observer = std::function<void(const RecordedRequest &request, const QString &outcome)>;

    /// A server with a certificate authority of its own and a valid leaf. Does not listen yet.
    AdServer();
    /// Stops the server.
    ~AdServer();
    AdServer(const AdServer &) = delete;
    AdServer &operator=(const AdServer &) = delete;

    /// Listens on 127.0.0.1 and returns the base URL, "https://127.0.0.1:PORT", without a slash at
    /// its end. Port 0 takes a free one. Empty on failure (port taken, no usable identity), with
    /// the reason in errorString(). On a server that runs already it changes nothing and returns
    /// its base URL.
    QString start(quint16 port = 0);

    /// Closes every connection, ends every hang and delay, and returns when all threads have
    /// ended, in well under a second. Harmless when not running; the server can be started again.
    void stop();

    bool isRunning() const;

    /// The base URL while running, otherwise empty.
    QString baseUrl() const;

    /// Why the last start() failed; empty when it did not.
    QString errorString() const;

    /// The certificate (PEM) of this server's authority, which the client must trust.
    QByteArray caPem() const;

    /// The authority that signed the default identity; it can make other leaf certificates.
    const CertificateAuthority &authority() const;

    /// Presents another certificate from the next start() on, for example an expired one, or one of
    /// an authority that the client does not trust.
    void setIdentity(const Identity &identity);

    /// Sets the observer; only while not running.
    void setObserver(const Observer &observer);

    Campaign &campaign();
    Faults &faults();
    RequestLog &log();

private:
    class Private;
    std::unique_ptr<Private> m_d;
};

} // namespace velmora::adserver
