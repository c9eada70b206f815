// SPDX-License-Identifier: Apache-2.0
#include "demo/LinkOpener.h"

#include "demo/EventLog.h"

#include <QtGui/QDesktopServices>

namespace demo {

const QString LinkOpener::Opened = QStringLiteral("opened-link");

LinkOpener::LinkOpener(EventLog &log) : m_log(log) {
    handle(true);
}

LinkOpener::~LinkOpener() {
    handle(false);
}

void LinkOpener::handle(bool on) {
    for (const char *scheme : {"macappstores", "https", "http"}) {
        if (on)
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "take");
        else
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }
}

void LinkOpener::take(const QUrl &link) {
    m_log.record(Opened, link.toString());
    if (!m_opensBrowser)
        return;
    handle(false);
    QDesktopServices::openUrl(link);
    handle(true);
}

} // namespace demo
