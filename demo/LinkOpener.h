// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QUrl>

namespace demo {

class EventLog;

/// Receives the links that the framework opens and records them. They reach the browser only when
/// that is switched on, so that the demo needs neither a browser nor a store.
class LinkOpener : public QObject {
    Q_OBJECT

public:
    /// Name of the event that records an opened link; the object is the link.
    static const QString Opened;

    explicit LinkOpener(EventLog &log);
    ~LinkOpener() override;

    bool opensBrowser() const { return m_opensBrowser; }
    void setOpensBrowser(bool on) { m_opensBrowser = on; }

public Q_SLOTS:
    void open(const QUrl &link);

private:
    /// Installs or removes open() as the handler of web and store links.
    void setHandling(bool on);

    EventLog &m_log;
    bool m_opensBrowser = false;
};

} // namespace demo
