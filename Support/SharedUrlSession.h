// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "UrlSession.h"

#include <memory>

namespace velmora {

/// The process's one URL session, which trusts what the deployment trusts. Every request of the
/// framework goes through it, and none leaves the process while ads are removed.
class SharedUrlSession {
public:
    SharedUrlSession();
    ~SharedUrlSession();

    /// Made on first use. Main thread.
    static UrlSession &shared();

    /// The session if there is one, to be kept while it is in use; it may be closed meanwhile. Any
    /// thread: none but the main one makes a session, which must not appear while the process ends.
    static std::shared_ptr<UrlSession> existing();

    /// Cancels all requests, which fail. Any thread.
    static void cancelAll();

private:
    const std::shared_ptr<UrlSession> m_session;
};

} // namespace velmora
