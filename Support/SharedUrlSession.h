// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "UrlSession.h"

#include <memory>

namespace velmora {

/// The process's one URL session. It trusts the certificate authorities that Deployment names. All
/// requests of the framework go through it, and it sends none while ads are removed.
class SharedUrlSession {
public:
    SharedUrlSession();
    ~SharedUrlSession();

    /// Closes the session. For ProcessRoot.
    void atExit();

    /// The session, made on first use. Main thread only.
    static UrlSession &shared();

    /// The session, or null when shared() has not been called or the session is gone. It may be
    /// closed while the caller holds it. Any thread: only shared() makes a session, so that another
    /// thread cannot make one while the process is ending.
    static std::shared_ptr<UrlSession> existing();

    /// Cancels all requests; their completions report an error. Any thread.
    static void cancelAll();

private:
    const std::shared_ptr<UrlSession> m_session;
};

} // namespace velmora
