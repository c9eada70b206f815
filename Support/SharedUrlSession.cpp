// SPDX-License-Identifier: Apache-2.0
#include "SharedUrlSession.h"

#include "Deployment.h"
#include "FirstPicture.h"
#include "PictureFile.h"
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
    // Once exit() has begun the switch can't be read any more.
    configuration.isAllowed = [] { return !ProcessRoot::hasEnded() && !Switches::isADSRemoved(); };
    configuration.beforeLoading = [] {
        PictureFile::loadPlugins();
        FirstPicture::wait();
    };
    return configuration;
}

// For existing(), which other threads may still call after main() has returned. Hence neither under
// ProcessRoot nor ever destroyed.
struct Existing {
    std::mutex mutex;
    std::weak_ptr<UrlSession> session;
};

Existing &existingSession() {
    static Existing &instance = *new Existing;
    return instance;
}

} // namespace

SharedUrlSession::SharedUrlSession() : m_session(std::make_shared<UrlSession>(configuration())) {
    const std::lock_guard lock(existingSession().mutex);
    existingSession().session = m_session;
}

SharedUrlSession::~SharedUrlSession() {
    atExit();
}

void SharedUrlSession::atExit() {
    FirstPicture::settle(); // close() waits for the thread
    m_session->close();
}

UrlSession &SharedUrlSession::shared() {
    // Once a program and not once a ProcessRoot, because Qt's list of routines has no removal. The
    // routine sends the requests that were made before there was an application object.
    static const bool prepared = [] {
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
    const std::lock_guard lock(existingSession().mutex);
    return existingSession().session.lock();
}

} // namespace velmora
