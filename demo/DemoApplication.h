// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Advertising.h"
#include "demo/DemoServer.h"
#include "demo/EventLog.h"
#include "demo/LinkOpener.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <memory>

namespace demo {

class JournalWindow;

/// The running journal: the ad server, the advertising and the windows.
class DemoApplication : public QObject {
    Q_OBJECT

public:
    ~DemoApplication() override;

    /// Starts the ad server, before the framework's first use.
    bool startServer(const QString &campaignFolder);

    /// The times that splash screens get; to be called before the first window.
    void setTimes(const SplashTimes &times) { m_times = times; }

    /// Opens a window of the journal with a banner and a splash screen.
    JournalWindow *openWindow();

    /// The advertising; null before the first window.
    Advertising *advertising() const { return m_advertising.get(); }

    DemoServer &server() { return m_server; }
    EventLog &log() { return m_log; }

private:
    void offerPurchase();
    void showInStatusLine(const QString &name, const QString &object);

    DemoServer m_server;
    EventLog m_log;
    LinkOpener m_links{m_log};
    SplashTimes m_times;
    std::unique_ptr<Advertising> m_advertising;
    QList<QPointer<JournalWindow>> m_windows;
};

} // namespace demo
