#include "Support/SharedUrlSession.h"

#include "Support/Deployment.h"
#include "platform/ProcessRoot.h"

#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QSslConfiguration>

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
    static const bool prepared = [] {
        // Makes what the network thread leans on, so that exit() takes the thread away first.
        QSslConfiguration::defaultConfiguration();
        const QNetworkAccessManager registersItsTypes;
        ProcessRoot::dropAtExit();
        return true;
    }();
    Q_UNUSED(prepared)
    return ProcessRoot::get<SharedUrlSession>();
}

} // namespace velmora
