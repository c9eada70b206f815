// SPDX-License-Identifier: Apache-2.0
// Small hosts of many kinds. Usage: velmora-host-gallery NAME [START-SCREEN-SECONDS] | --list
#include "Gallery.h"
#include "Hosts.h"

#include <Velmora/Velmora.h>

#include <QtGui/QIcon>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

gallery::Hosts allHosts() {
    gallery::Hosts all;
    for (const auto &hosts :
         {gallery::mainWindowHosts(), gallery::dialogHosts(), gallery::windowStateHosts(),
          gallery::pageHosts(), gallery::nativeHosts(),
#ifdef GALLERY_X11
          gallery::foreignHosts(),
#endif
#ifdef GALLERY_QUICK
          gallery::quickHosts(),
#endif
          gallery::lookHosts(), gallery::severalWindowsHosts()})
        all.insert(all.end(), hosts.begin(), hosts.end());
    return all;
}

// The icon that splash screens show.
QIcon icon() {
    QPixmap picture(256, 256);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::darkCyan);
    painter.drawEllipse(picture.rect().adjusted(8, 8, -8, -8));
    return picture;
}

} // namespace

int main(int argc, char **argv) {
    const char *wanted = argc >= 2 ? argv[1] : "";
    const gallery::Hosts hosts = allHosts();
    if (std::strcmp(wanted, "--list") == 0) {
        for (const gallery::Host &host : hosts)
            std::puts(host.name);
        return 0;
    }
    const auto host = std::find_if(hosts.begin(), hosts.end(), [wanted](const gallery::Host &each) {
        return std::strcmp(each.name, wanted) == 0;
    });
    if (host == hosts.end()) {
        std::fprintf(stderr, "Usage: velmora-host-gallery NAME [START-SCREEN-SECONDS] | --list\n");
        return 2;
    }
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Velmora Tests"));
    QApplication::setApplicationName(QStringLiteral("gallery"));
    QApplication::setWindowIcon(icon());
    QApplication::setQuitOnLastWindowClosed(false);
    Velmora::activateDebugMode();
    gallery::Gallery gallery(argc == 3 ? std::atoi(argv[2]) : 5);
    host->open(gallery);
    return QApplication::exec();
}
