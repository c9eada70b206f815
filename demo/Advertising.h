#pragma once

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

/// All that the journal has to do with advertising: it gives its windows banners, listens to
/// the framework, and takes advertising away when the reader pays for that.
class Advertising : public QObject {
    Q_OBJECT

public:
    Advertising(DemoServer &server, EventLog &log, LinkOpener &links);

    /// Puts a banner into a window, now and whenever ads are reset.
    void addWindow(QWidget *window);

    /// Takes the banners away, for good.
    void removeAds();

    /// Allows ads again and gives every window its banner back.
    void resetAds();

    DemoServer &server() { return m_server; }
    EventLog &log() { return m_log; }
    LinkOpener &links() { return m_links; }

Q_SIGNALS:
    /// The reader wants to be rid of the banners.
    void removalWanted();

private:
    void hear(const velmora::Notification &notification);

    DemoServer &m_server;
    EventLog &m_log;
    LinkOpener &m_links;
    QList<QPointer<QWidget>> m_windows;
    std::vector<velmora::NotificationCenter::Observation> m_observations;
};

} // namespace demo
