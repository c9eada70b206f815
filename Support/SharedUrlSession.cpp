#include "Support/SharedUrlSession.h"

#include "Support/Deployment.h"
#include "platform/ProcessRoot.h"

namespace velmora {

SharedUrlSession::SharedUrlSession()
    : UrlSession([] {
          Configuration configuration;
          const Deployment &deployment = Deployment::current();
          configuration.privateHost = QUrl(deployment.acsURL).host();
          configuration.privateAuthorities = deployment.adServerAuthorities;
          return configuration;
      }()) {}

UrlSession &SharedUrlSession::shared() {
    return ProcessRoot::get<SharedUrlSession>();
}

} // namespace velmora
