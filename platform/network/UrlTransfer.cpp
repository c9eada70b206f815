// SPDX-License-Identifier: Apache-2.0
#include "UrlTransfer.h"

#include "WebLink.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

constexpr int MostRedirects = 20;
constexpr qint64 LargestHead = 64 * 1024;

// The same for every host, user and system.
constexpr char UserAgent[] = "Velmora";

// libcurl sends these by itself unless they are named without a value.
constexpr const char *HeadersNotSent[] = {"Accept:", "Content-Type:", "Expect:"};

const QByteArray LocationHeader = "location:";
const QString NotAllowed = QStringLiteral("requests are not allowed now");

} // namespace

UrlTransfer::UrlTransfer(UrlRequest request, const UrlSession::Configuration &configuration)
    : m_request(std::move(request)), m_configuration(configuration), m_handle(m_curl.easy_init()) {
    for (const char *header : HeadersNotSent)
        m_headers = m_curl.slist_append(m_headers, header);
}

UrlTransfer::~UrlTransfer() {
    m_curl.easy_cleanup(m_handle);
    m_curl.slist_free_all(m_headers);
}

bool UrlTransfer::refuse(const QString &reason) {
    m_response = {};
    m_response.error = reason;
    m_response.couldNotWrite = m_couldNotWrite;
    m_file.reset();
    return false;
}

bool UrlTransfer::refuseFile(const QString &reason) {
    m_refusal = reason;
    m_couldNotWrite = true;
    return false;
}

bool UrlTransfer::refuseUnsent(const QString &reason) {
    refuse(reason);
    m_response.isRefused = !m_wasSent;
    return false;
}

UrlResponse UrlTransfer::cancelledResponse() const {
    UrlResponse response;
    response.error = QStringLiteral("cancelled");
    response.isRefused = !m_wasSent;
    return response;
}

bool UrlTransfer::isAllowed() const {
    return !m_configuration.isAllowed || m_configuration.isAllowed();
}

bool UrlTransfer::prepare() {
    if (!m_handle)
        return refuse(QStringLiteral("out of memory"));
    if (!WebLink::isOnTheWeb(m_request.url))
        return refuse(QStringLiteral("not a web address: ") + m_request.url.toString());
    if (!isAllowed())
        return refuseUnsent(NotAllowed);
    setRequest();
    setTrust();
    setLimits();
    setCallbacks();
    return true;
}

void UrlTransfer::setRequest() {
    set(CURLOPT_URL, m_request.url.toEncoded(QUrl::RemoveFragment).constData());
    set(CURLOPT_PROTOCOLS_STR, "https,http");
    set(CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    set(CURLOPT_PROXY, ""); // not the one that the environment names
    set(CURLOPT_USERAGENT, UserAgent);
    set(CURLOPT_ACCEPT_ENCODING, "gzip");
    set(CURLOPT_HTTPHEADER, m_headers);
    if (m_request.method == "POST") {
        set(CURLOPT_POST, 1L);
        set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(m_request.body.size()));
        set(CURLOPT_COPYPOSTFIELDS, m_request.body.constData());
    } else {
        set(CURLOPT_HTTPGET, 1L);
    }
    if (m_request.onlyOnce) {
        set(CURLOPT_FRESH_CONNECT, 1L);
        set(CURLOPT_FORBID_REUSE, 1L);
    }
}

// libcurl verifies certificates by default, against the system's authorities.
void UrlTransfer::setTrust() {
    set(CURLOPT_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2)); // or later
    const QByteArray &authorities = m_configuration.privateAuthorities;
    if (authorities.isEmpty() || m_request.url.host() != m_configuration.privateHost)
        return;
    curl_blob blob{const_cast<char *>(authorities.constData()), size_t(authorities.size()),
                   CURL_BLOB_COPY};
    set(CURLOPT_CAINFO_BLOB, &blob);
    set(CURLOPT_CAPATH, static_cast<const char *>(nullptr));
}

void UrlTransfer::setLimits() {
    const long idleSeconds = std::max(1, (m_configuration.idleTimeoutMs + 999) / 1000);
    set(CURLOPT_TIMEOUT_MS, long(m_request.wholeTimeoutMs));
    set(CURLOPT_CONNECTTIMEOUT_MS, idleSeconds * 1000);
    set(CURLOPT_LOW_SPEED_LIMIT, 1L); // byte a second
    set(CURLOPT_LOW_SPEED_TIME, idleSeconds);
    if (!m_request.ignoresBody)
        set(CURLOPT_MAXFILESIZE_LARGE, curl_off_t(m_request.largestBody));
    // A name server that does not answer is not waited for when the session ends.
    set(CURLOPT_QUICK_EXIT, 1L);
}

void UrlTransfer::setCallbacks() {
    set(CURLOPT_NOSIGNAL, 1L); // no signal handlers: the process is the host's
    set(CURLOPT_ERRORBUFFER, m_error);
    set(CURLOPT_HEADERFUNCTION, &UrlTransfer::receiveHeader);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_WRITEFUNCTION, &UrlTransfer::receiveBody);
    set(CURLOPT_WRITEDATA, this);
    set(CURLOPT_PREREQFUNCTION, &UrlTransfer::beforeRequest);
    set(CURLOPT_PREREQDATA, this);
}

int UrlTransfer::beforeRequest(void *self, char *, char *, int, int) {
    auto *transfer = static_cast<UrlTransfer *>(self);
    transfer->m_isForbidden = !transfer->isAllowed();
    if (transfer->m_isForbidden)
        return CURL_PREREQFUNC_ABORT;
    transfer->m_wasSent = true;
    return CURL_PREREQFUNC_OK;
}

// Both end the transfer by returning another size than they were given.

size_t UrlTransfer::receiveHeader(const char *data, size_t one, size_t count, void *self) {
    const size_t size = one * count;
    const bool goesOn =
        static_cast<UrlTransfer *>(self)->takeHeader(QByteArray(data, qsizetype(size)));
    return goesOn ? size : 0;
}

size_t UrlTransfer::receiveBody(const char *data, size_t one, size_t count, void *self) {
    const size_t size = one * count;
    return static_cast<UrlTransfer *>(self)->takeBody(data, qint64(size)) ? size : 0;
}

bool UrlTransfer::takeHeader(const QByteArray &line) {
    m_headerSize += line.size();
    if (m_headerSize > LargestHead) {
        m_refusal = QStringLiteral("the headers are longer than %1 bytes").arg(LargestHead);
        return false;
    }
    if (line.startsWith("HTTP/"))
        m_location.clear(); // of an interim response
    else if (line.left(LocationHeader.size()).toLower() == LocationHeader)
        m_location = line.mid(LocationHeader.size()).trimmed();
    if (!line.trimmed().isEmpty())
        return true;
    long status = 0;
    m_curl.easy_getinfo(m_handle, CURLINFO_RESPONSE_CODE, &status);
    m_response.status = int(status);
    m_hasHead = status >= 200;
    const bool needsNoBody = m_request.ignoresBody || !redirection().isEmpty();
    return !m_hasHead || !needsNoBody;
}

bool UrlTransfer::takeBody(const char *data, qint64 size) {
    m_response.bodySize += size;
    if (m_response.bodySize > m_request.largestBody) {
        m_refusal = QStringLiteral("the body is longer than %1 bytes").arg(m_request.largestBody);
        return false;
    }
    if (m_request.destination.isEmpty()) {
        m_response.body.append(data, size);
        return true;
    }
    if (!m_file && !openFile())
        return false;
    return m_file->write(data, size) == size || refuseFile(m_file->errorString());
}

bool UrlTransfer::openFile() {
    QDir().mkpath(QFileInfo(m_request.destination).path());
    m_file = std::make_unique<QSaveFile>(m_request.destination);
    // A link's target lies wherever somebody pointed it.
    if (QFileInfo(m_request.destination).isSymLink())
        return refuseFile(QStringLiteral("%1 is a symbolic link").arg(m_request.destination));
    return m_file->open(QIODevice::WriteOnly) || refuseFile(m_file->errorString());
}

bool UrlTransfer::goesOnAfter(CURLcode result) {
    if (m_isForbidden)
        return refuseUnsent(NotAllowed);
    if (!m_refusal.isEmpty())
        return refuse(m_refusal);
    const QUrl next = redirection();
    if (!next.isEmpty() && mayFollow(next)) {
        follow(next);
        return prepare();
    }
    // A redirect that must not be followed is a reply, but no media.
    if (!next.isEmpty() && !m_request.onlyOnce)
        return refuse(QStringLiteral("a redirect to %1 is not followed").arg(next.toString()));
    const bool endedAtItsHead = m_hasHead && (m_request.ignoresBody || !next.isEmpty());
    if (result != CURLE_OK && !endedAtItsHead)
        return refuse(errorOf(result));
    if (m_file && !m_file->commit()) {
        refuseFile(m_file->errorString());
        return refuse(m_refusal);
    }
    m_file.reset();
    return false;
}

QUrl UrlTransfer::redirection() const {
    constexpr int Redirects[] = {301, 302, 303, 307, 308};
    const bool isRedirect =
        m_hasHead && std::ranges::find(Redirects, m_response.status) != std::ranges::end(Redirects);
    if (!isRedirect || m_location.isEmpty())
        return {};
    return m_request.url.resolved(QUrl(QString::fromUtf8(m_location)));
}

bool UrlTransfer::mayFollow(const QUrl &next) const {
    return WebLink::isOnTheWeb(next) && next.scheme() == m_request.url.scheme() &&
           next.host() == m_request.url.host() && m_redirects < MostRedirects;
}

void UrlTransfer::follow(const QUrl &next) {
    ++m_redirects;
    m_request.url = next;
    if (m_response.status != 307 && m_response.status != 308) {
        m_request.method = "GET";
        m_request.body.clear();
    }
    m_response = {};
    m_location.clear();
    m_hasHead = false;
    m_headerSize = 0;
    m_curl.easy_reset(m_handle);
}

QString UrlTransfer::errorOf(CURLcode result) const {
    if (result == CURLE_FILESIZE_EXCEEDED)
        return QStringLiteral("the body is longer than %1 bytes").arg(m_request.largestBody);
    const QString text = QString::fromUtf8(m_error);
    return text.isEmpty() ? QString::fromUtf8(m_curl.easy_strerror(result)) : text;
}

} // namespace velmora
