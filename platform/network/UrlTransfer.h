// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "CurlLibrary.h"
#include "UrlSession.h"

#include <QtCore/QByteArray>
#include <QtCore/QSaveFile>

#include <memory>

namespace velmora {

/// One request on the worker thread: streams the body into memory, or into a file that gets its
/// final name only when the body is complete.
class UrlTransfer {
public:
    UrlTransfer(UrlRequest request, const UrlSession::Configuration &configuration);
    ~UrlTransfer();
    UrlTransfer(const UrlTransfer &) = delete;
    UrlTransfer &operator=(const UrlTransfer &) = delete;

    CURL *handle() const { return m_handle; }

    /// Sets all options of the handle for its request; false when the request is refused, with the
    /// reason in the response.
    bool prepare();

    /// The handle has ended a request. True when it is prepared for another, which a redirect
    /// leads to; else the response is complete.
    bool goesOnAfter(CURLcode result);

    UrlResponse takeResponse() { return std::move(m_response); }

    /// The response of a transfer that is cancelled now.
    UrlResponse cancelledResponse() const;

private:
    static size_t receiveHeader(const char *data, size_t one, size_t count, void *self);
    static size_t receiveBody(const char *data, size_t one, size_t count, void *self);
    static int beforeRequest(void *self, char *, char *, int, int);

    /// Makes the response an error. Returns false, for callers to return.
    bool refuse(const QString &reason);
    /// The same for a destination that can't be written.
    bool refuseFile(const QString &reason);
    /// The same, and tells whether the request was sent.
    bool refuseUnsent(const QString &reason);
    bool isAllowed() const;
    void setRequest();
    void setTrust();
    void setLimits();
    void setCallbacks();
    bool takeHeader(const QByteArray &line);
    bool takeBody(const char *data, qint64 size);
    bool openFile();
    QUrl redirection() const;
    bool mayFollow(const QUrl &next) const;
    void follow(const QUrl &next);
    QString errorOf(CURLcode result) const;

    // CurlLibrary has checked that the library knows the options.
    template<class Value>
    void set(CURLoption option, Value value) {
        m_curl.easy_setopt(m_handle, option, value);
    }

    UrlRequest m_request;
    const UrlSession::Configuration &m_configuration;
    UrlResponse m_response;
    const CurlLibrary &m_curl = CurlLibrary::instance();
    CURL *const m_handle;
    curl_slist *m_headers = nullptr;
    char m_error[CURL_ERROR_SIZE] = "";
    /// Why a callback of libcurl has ended the transfer; empty when none has.
    QString m_refusal;
    std::unique_ptr<QSaveFile> m_file;
    QByteArray m_location;
    qint64 m_headerSize = 0;
    int m_redirects = 0;
    bool m_hasHead = false;
    bool m_wasSent = false;
    bool m_isForbidden = false;
    bool m_couldNotWrite = false;
};

} // namespace velmora
