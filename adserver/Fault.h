// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace velmora::adserver {

/// One way for the server to misbehave. Made by the functions below and passed to Faults::set().
/// Every fault may be combined with a delay and limited to a number of requests:
/// `Fault::statusCode(503).after(200).times(1)`.
struct Fault {
    enum class Kind {
        None,      ///< the normal answer (after the delay, if one is set)
        Status,    ///< another status code and body
        Body,      ///< status 200 with other bytes
        Truncated, ///< the normal answer's headers, half of its body, then the connection closes
        Huge,      ///< status 200 with a body of `size` bytes, generated while it is sent
        Reset,     ///< no answer: the connection is reset (TCP RST)
        Close,     ///< no answer: the connection is closed in good order
        Stale,     ///< as Close, but only on a connection that has carried a request before
        Hang,      ///< no answer until the fault is cleared or the server stops
        Redirect   ///< status 302 to `location`
    };

    Kind kind = Kind::None;
    int delayMs = 0;    ///< milliseconds to wait before anything is sent
    int status = 200;   ///< for Status
    QByteArray body;    ///< for Status and Body
    qint64 size = 0;    ///< bytes, for Huge
    QString location;   ///< absolute or relative URL, for Redirect
    int remaining = -1; ///< how many more requests are affected; negative: no limit

    static Fault delay(int milliseconds);
    static Fault statusCode(int code, const QByteArray &body = {});
    static Fault wrongBody(const QByteArray &bytes);
    static Fault truncated();
    static Fault huge(qint64 bytes);
    static Fault reset();
    static Fault close();
    /// For a client that sends a request on an idle connection while the server is closing it.
    static Fault stale();
    /// A hanging request is answered normally once the fault is cleared.
    static Fault hang();
    static Fault redirect(const QString &url);

    /// The same fault for the next `count` requests only; later ones are answered normally.
    Fault times(int count) const;
    /// The same fault after a delay in milliseconds.
    Fault after(int milliseconds) const;

    /// Reads "KIND[:ARGUMENT]": delay:MS, status:CODE[:BODY], body:TEXT, truncated, huge:BYTES,
    /// reset, close, stale, hang, redirect:URL. Nothing for any other text.
    static std::optional<Fault> fromText(const QString &text);
};

} // namespace velmora::adserver
