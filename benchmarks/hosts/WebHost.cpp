// SPDX-License-Identifier: Apache-2.0
// A host that shows the picture of the banners in a web view.
#include "benchmarks/hosts/HostReport.h"
#include "benchmarks/hosts/PlainWindow.h"

#include <QtWebEngineWidgets/QWebEngineView>
#include <QtWidgets/QApplication>

#include <unistd.h>

int main(int argc, char **argv) {
    // Chromium's sandbox does not work for root.
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    const QApplication application(argc, argv);
    velmora::bench::PlainWindow window(velmora::bench::bannerWindowPlace(0));
    QWebEngineView view(&window);
    view.setGeometry(5, window.height() - 104, 809, 100);
    QObject::connect(&view, &QWebEngineView::loadFinished,
                     [] { velmora::bench::HostReport::print("shown"); });
    const QUrl picture = QUrl::fromLocalFile(QStringLiteral(VELMORA_SAMPLE_BANNER));
    view.setHtml(QStringLiteral("<body style='margin:0'><img width=809 height=100 src='%1'></body>")
                     .arg(picture.toString()),
                 picture);
    window.show();
    return QApplication::exec();
}
