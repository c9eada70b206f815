#include "Support/SharedUrlSession.h"

#include "Support/Deployment.h"
#include "platform/ProcessRoot.h"

namespace velmora {

SharedUrlSession::SharedUrlSession()
    : UrlSession([] {
          Configuration configuration;
          configuration.additionalAuthorities = Deployment::current().additionalAuthorities;
          return configuration;
      }()) {}

UrlSession &SharedUrlSession::shared() {
    return ProcessRoot::get<SharedUrlSession>();
}

} // namespace velmora
