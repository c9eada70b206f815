// SPDX-License-Identifier: Apache-2.0
#include "demo/LinkOpener.h"

#include "demo/EventLog.h"

#include <QtGui/QDesktopServices>

namespace demo {

const QString LinkOpener::Opened = QStringLiteral("opened-link");

LinkOpener::LinkOpener(EventLog &log) : m_log(log) {
    setHandling(true);
}

LinkOpener::~LinkOpener() {
    setHandling(false);
}

void LinkOpener::setHandling(bool on) {
    for (const char *scheme : {"macappstores", "https", "http"}) {
        if (on)
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "open");
        else
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }
}

void LinkOpener::open(const QUrl &link) {
    m_log.record(Opened, link.toString());
    if (!m_opensBrowser)
        return;
    setHandling(false);
    QDesktopServices::openUrl(link);
    setHandling(true);
}

} // namespace demo
