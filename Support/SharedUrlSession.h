#pragma once

#include "platform/UrlSession.h"

namespace velmora {

/// The process's URL session, which trusts what the deployment trusts.
class SharedUrlSession : public UrlSession {
public:
    SharedUrlSession();
    static UrlSession &shared();
};

} // namespace velmora
