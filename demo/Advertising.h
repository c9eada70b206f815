// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/SplashTimes.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>

class QWidget;

namespace demo {

class DemoServer;
class EventLog;
class LinkOpener;
class Reader;

/// The journal's use of the framework: adds banners and splash screens to its windows, logs the
/// framework's signals, and removes advertising when the reader has paid for that.
class Advertising : public QObject {
    Q_OBJECT

public:
    Advertising(DemoServer &server, EventLog &log, LinkOpener &links, Reader &reader,
                const SplashTimes &times);

    /// Names of all notifications that the framework posts about advertising.
    static const QStringList &notifications();

    /// Adds a banner and a splash screen to a window, and again whenever ads are reset.
    void addWindow(QWidget *window);

    /// The reader has turned a page: a good moment for a splash screen, which is shown if it is
    /// due.
    void pageTurned();

    /// Removes banners and splash screens, also for later runs.
    void removeAds();

    /// Allows ads again and adds them to every window.
    void resetAds();

    const SplashTimes &times() const { return m_times; }
    void setTimes(const SplashTimes &times);

    DemoServer &server() { return m_server; }
    EventLog &log() { return m_log; }
    LinkOpener &links() { return m_links; }
    Reader &reader() { return m_reader; }

Q_SIGNALS:
    /// The reader has clicked a button that asks for the removal of advertising.
    void removalWanted();

private:
    /// Logs a signal of VelmoraEvents, with its text if it has one, under a name.
    template<class Signal>
    void recordAs(const QString &name, Signal signal);
    void recordSignals();

    DemoServer &m_server;
    EventLog &m_log;
    LinkOpener &m_links;
    Reader &m_reader;
    SplashTimes m_times;
    QList<QPointer<QWidget>> m_windows;
};

} // namespace demo
