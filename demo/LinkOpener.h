// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QUrl>

namespace demo {

class EventLog;

/// Takes the links that the framework opens, so that the demo needs neither a browser nor a
/// store: it records them, and passes them on only when asked to.
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
    void take(const QUrl &link);

private:
    void handle(bool on);

    EventLog &m_log;
    bool m_opensBrowser = false;
};

} // namespace demo
