// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Advertising.h"
#include "demo/DemoServer.h"
#include "demo/EventLog.h"
#include "demo/LinkOpener.h"
#include "demo/Reader.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <memory>

class QApplication;

namespace demo {

class JournalWindow;
struct Options;

/// The demo: its ad server, its advertising and its windows.
class DemoApplication : public QObject {
    Q_OBJECT

public:
    ~DemoApplication() override;

    /// Gives the application the journal's names, icon and look.
    static void setUp(QApplication &application);

    /// Starts the ad server. To be called before the framework is first used.
    /// @return false on failure; server().errorString() has the reason
    bool startServer(const QString &campaignFolder);

    /// Sets the times of the splash screens. To be called before the first openWindow().
    void setTimes(const SplashTimes &times) { m_times = times; }
    /// Sets all options that the demo was started with; they are given again when the reader
    /// restarts it. To be called between startServer() and the first openWindow().
    void setOptions(const Options &options);

    /// Opens a window of the journal, with a banner and a splash screen. It is deleted on close.
    JournalWindow *openWindow();

    /// The advertising; null before the first window.
    Advertising *advertising() const { return m_advertising.get(); }

    DemoServer &server() { return m_server; }
    EventLog &log() { return m_log; }

private:
    void offerPurchase();
    void restart();
    void showInStatusLine(const QString &name, const QString &object);

    DemoServer m_server;
    EventLog m_log;
    LinkOpener m_links{m_log};
    Reader m_reader;
    QString m_campaign;
    SplashTimes m_times;
    std::unique_ptr<Advertising> m_advertising;
    QList<QPointer<JournalWindow>> m_windows;
};

} // namespace demo
