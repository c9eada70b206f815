// SPDX-License-Identifier: Apache-2.0
#include "Workspace.h"

#include "Log.h"
#include "WebLink.h"

#include <QtGui/QDesktopServices>

namespace velmora {

namespace {

// Set by tests. Not in ProcessRoot, so that it stays when a test drops the process state.
Workspace::Opener s_opener;

bool openOnDesktop(const QUrl &link) {
    QUrl opened = link;
    const QString store = QStringLiteral("macappstores");
    if (link.scheme() == store && !Workspace::hasHandlerFor(store))
        opened.setScheme(QStringLiteral("https"));
    return QDesktopServices::openUrl(opened);
}

} // namespace

bool Workspace::openURL(const QUrl &link) {
    if (!WebLink::mayOpen(link)) {
        Log::write(link.isEmpty() ? QStringLiteral("there is no link to open")
                                  : QStringLiteral("link refused: %1").arg(link.toString()));
        return false;
    }
    const bool taken = s_opener ? s_opener(link) : openOnDesktop(link);
    Log::write(
        QStringLiteral("link %1: %2")
            .arg(taken ? QStringLiteral("opened") : QStringLiteral("not taken by the system"),
                 link.toString()));
    return taken;
}

void Workspace::setOpener(Opener opener) {
    s_opener = std::move(opener);
}

} // namespace velmora
