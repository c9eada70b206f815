// SPDX-License-Identifier: Apache-2.0
// A host that starts, with advertising. Without VELMORA_BENCH_WITH_LIBRARY it is the same host
// without the library.
#include "benchmarks/hosts/PlainWindow.h"

#include <QtWidgets/QApplication>

#ifdef VELMORA_BENCH_WITH_LIBRARY
#include <Velmora/Velmora.h>
#endif

int main(int argc, char **argv) {
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora Benchmarks"));
    QCoreApplication::setApplicationName(QStringLiteral("host"));
    const QApplication application(argc, argv);
    velmora::bench::PlainWindow window;
    window.show();
#ifdef VELMORA_BENCH_WITH_LIBRARY
    Velmora::addBannerForWindow(&window);
    Velmora::addSplashScreenToWindow(&window);
#endif
    return QApplication::exec();
}
