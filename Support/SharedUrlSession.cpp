// SPDX-License-Identifier: Apache-2.0
#include "SharedUrlSession.h"

#include "Deployment.h"
#include "ProcessRoot.h"
#include "Switches.h"

#include <QtCore/QCoreApplication>

#include <mutex>

namespace velmora {

namespace {

UrlSession::Configuration configuration() {
    UrlSession::Configuration configuration;
    const Deployment &deployment = Deployment::current();
    configuration.privateHost = QUrl(deployment.acsURL).host();
    configuration.privateAuthorities = deployment.adServerAuthorities;
    configuration.isAllowed = [] { return !Switches::isADSRemoved(); };
    return configuration;
}

// Never destroyed: a look-up may outlive everything.
struct Known {
    std::mutex mutex;
    std::weak_ptr<UrlSession> session;
};

Known &known() {
    static Known &instance = *new Known;
    return instance;
}

} // namespace

SharedUrlSession::SharedUrlSession() : m_session(std::make_shared<UrlSession>(configuration())) {
    const std::lock_guard lock(known().mutex);
    known().session = m_session;
}

SharedUrlSession::~SharedUrlSession() {
    m_session->close();
}

UrlSession &SharedUrlSession::shared() {
    static const bool prepared = [] {
        ProcessRoot::dropAtExit();
        qAddPreRoutine([] {
            if (const auto session = existing())
                session->wake();
        });
        return true;
    }();
    Q_UNUSED(prepared)
    return *ProcessRoot::get<SharedUrlSession>().m_session;
}

void SharedUrlSession::cancelAll() {
    if (const auto session = existing())
        session->cancelAll();
}

std::shared_ptr<UrlSession> SharedUrlSession::existing() {
    const std::lock_guard lock(known().mutex);
    return known().session.lock();
}

} // namespace velmora
