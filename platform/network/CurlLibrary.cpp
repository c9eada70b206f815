// SPDX-License-Identifier: Apache-2.0
#include "CurlLibrary.h"

#include "Log.h"
#include "ProcessRoot.h"

#include <dlfcn.h>

namespace velmora {

namespace {

#ifdef __APPLE__
constexpr char FileName[] = "/usr/lib/libcurl.4.dylib";
#else
constexpr char FileName[] = "libcurl.so.4";
#endif

// Earlier versions do not know all options that UrlTransfer sets. Without CURLOPT_PREREQFUNCTION
// (7.80), nobody would know whether a request was sent; CURLOPT_QUICK_EXIT came last (7.87).
constexpr unsigned LowestVersion = CURL_VERSION_BITS(7, 87, 0);
constexpr QLatin1String LowestVersionName("7.87.0");

class Loader {
public:
    Loader() : m_handle(dlopen(FileName, RTLD_LAZY | RTLD_LOCAL)) {
        if (!m_handle)
            m_error = QString::fromLocal8Bit(dlerror());
    }

    template<class Function>
    void find(Function &function, const char *name) {
        if (!m_error.isEmpty())
            return;
        function = reinterpret_cast<Function>(dlsym(m_handle, name));
        if (!function)
            m_error =
                QStringLiteral("%1 has no %2").arg(QLatin1String(FileName), QLatin1String(name));
    }

    void checkVersion() {
        decltype(&curl_version_info) version_info = nullptr;
        find(version_info, "curl_version_info");
        if (!m_error.isEmpty())
            return;
        const curl_version_info_data *found = version_info(CURLVERSION_NOW);
        if (found->version_num < LowestVersion)
            m_error =
                QStringLiteral("libcurl %1 or later is needed, and %2 is %3")
                    .arg(LowestVersionName, QLatin1String(FileName), QLatin1String(found->version));
    }

    const QString &error() const { return m_error; }

private:
    void *const m_handle;
    QString m_error;
};

CurlLibrary load() {
    CurlLibrary curl;
    Loader loader;
    loader.checkVersion();
    decltype(&curl_global_init) global_init = nullptr;
    loader.find(global_init, "curl_global_init");
    loader.find(curl.easy_cleanup, "curl_easy_cleanup");
    loader.find(curl.easy_getinfo, "curl_easy_getinfo");
    loader.find(curl.easy_init, "curl_easy_init");
    loader.find(curl.easy_reset, "curl_easy_reset");
    loader.find(curl.easy_setopt, "curl_easy_setopt");
    loader.find(curl.easy_strerror, "curl_easy_strerror");
    loader.find(curl.multi_add_handle, "curl_multi_add_handle");
    loader.find(curl.multi_cleanup, "curl_multi_cleanup");
    loader.find(curl.multi_info_read, "curl_multi_info_read");
    loader.find(curl.multi_init, "curl_multi_init");
    loader.find(curl.multi_perform, "curl_multi_perform");
    loader.find(curl.multi_poll, "curl_multi_poll");
    loader.find(curl.multi_remove_handle, "curl_multi_remove_handle");
    loader.find(curl.multi_wakeup, "curl_multi_wakeup");
    loader.find(curl.slist_append, "curl_slist_append");
    loader.find(curl.slist_free_all, "curl_slist_free_all");
    curl.error = loader.error();
    if (curl.error.isEmpty() && global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK)
        curl.error = QStringLiteral("libcurl could not be initialised");
    if (!curl.error.isEmpty())
        Log::write(QStringLiteral("there is no network: %1").arg(curl.error));
    // The TLS library has just registered what it does at exit(). The framework's handler must run
    // before that.
    ProcessRoot::registerAtExit();
    return curl;
}

} // namespace

const CurlLibrary &CurlLibrary::instance() {
    // Never destroyed: the network thread may still be using it when exit() begins.
    static const auto &library = *new CurlLibrary(load());
    return library;
}

} // namespace velmora
