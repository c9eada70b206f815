// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

#include <curl/curl.h>

namespace velmora {

/// The functions of libcurl that the framework calls, under their names without "curl_".
///
/// The library is loaded at run time, by the network thread at the first request. Linked, it and
/// the thirty libraries that it needs (TLS, Kerberos, LDAP, SSH and so on) would be loaded before a
/// host's main() begins, which takes longer than everything else that a host's start has to do for
/// the framework. It is never unloaded. A version that is too old is not used.
struct CurlLibrary {
    decltype(&curl_easy_cleanup) easy_cleanup = nullptr;
    decltype(&curl_easy_getinfo) easy_getinfo = nullptr;
    decltype(&curl_easy_init) easy_init = nullptr;
    decltype(&curl_easy_reset) easy_reset = nullptr;
    decltype(&curl_easy_setopt) easy_setopt = nullptr;
    decltype(&curl_easy_strerror) easy_strerror = nullptr;
    decltype(&curl_multi_add_handle) multi_add_handle = nullptr;
    decltype(&curl_multi_cleanup) multi_cleanup = nullptr;
    decltype(&curl_multi_info_read) multi_info_read = nullptr;
    decltype(&curl_multi_init) multi_init = nullptr;
    decltype(&curl_multi_perform) multi_perform = nullptr;
    decltype(&curl_multi_poll) multi_poll = nullptr;
    decltype(&curl_multi_remove_handle) multi_remove_handle = nullptr;
    decltype(&curl_multi_wakeup) multi_wakeup = nullptr;
    decltype(&curl_slist_append) slist_append = nullptr;
    decltype(&curl_slist_free_all) slist_free_all = nullptr;

    /// Why the library can't be used, which is logged. Empty when it can.
    QString error;

    /// The first call loads and initialises the library, which takes some ten milliseconds, so it
    /// must not come from the main thread. Any thread afterwards.
    static const CurlLibrary &instance();
};

} // namespace velmora
