// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/SplashTimes.h"

#include <Velmora/NotificationCenter.h>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <vector>

class QWidget;

namespace demo {

class DemoServer;
class EventLog;
class LinkOpener;

/// All that the journal has to do with advertising: it gives its windows banners and splash
/// screens, listens to the framework, and takes advertising away when the reader pays for that.
class Advertising : public QObject {
    Q_OBJECT

public:
    Advertising(DemoServer &server, EventLog &log, LinkOpener &links, const SplashTimes &times);

    /// All that the framework says about advertising.
    static const QStringList &notifications();

    /// Puts a banner and a splash screen into a window, now and whenever ads are reset.
    void addWindow(QWidget *window);

    /// A good moment for a splash screen, if one is due: the reader turns the page.
    void pageTurned();

    /// Takes banners and splash screens away, for good.
    void removeAds();

    /// Allows ads again and gives every window what it had.
    void resetAds();

    const SplashTimes &times() const { return m_times; }
    void setTimes(const SplashTimes &times);

    DemoServer &server() { return m_server; }
    EventLog &log() { return m_log; }
    LinkOpener &links() { return m_links; }

Q_SIGNALS:
    /// The reader wants to be rid of advertising.
    void removalWanted();

private:
    void hear(const velmora::Notification &notification);

    DemoServer &m_server;
    EventLog &m_log;
    LinkOpener &m_links;
    SplashTimes m_times;
    QList<QPointer<QWidget>> m_windows;
    std::vector<velmora::NotificationCenter::Observation> m_observations;
};

} // namespace demo
