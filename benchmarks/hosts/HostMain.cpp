// SPDX-License-Identifier: Apache-2.0
// The hosts that are measured, with the library. The arguments choose one.

#include "benchmarks/hosts/BannerHost.h"
#include "benchmarks/hosts/CallsHost.h"
#include "benchmarks/hosts/SliceHost.h"
#include "benchmarks/hosts/StartPhaseHost.h"

#include <QtWidgets/QApplication>

using namespace velmora::bench;

int main(int argc, char **argv) {
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora Benchmarks"));
    QCoreApplication::setApplicationName(QStringLiteral("host"));
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString name = arguments.value(1);
    const int number = arguments.value(2).toInt();
    if (name == QLatin1String("banners"))
        return BannerHost::runMany(number, BannerHost::Then::Stays);
    if (name == QLatin1String("hidden"))
        return BannerHost::runMany(1, BannerHost::Then::Hides);
    if (name == QLatin1String("removed"))
        return BannerHost::runMany(1, BannerHost::Then::RemovesAds);
    if (name == QLatin1String("first-pixel"))
        return BannerHost::runFirstPixel();
    if (name == QLatin1String("start-phase"))
        return StartPhaseHost::run(number);
    if (name == QLatin1String("calls"))
        return CallsHost::run(arguments.value(2) == QLatin1String("banner"));
    if (name == QLatin1String("slices"))
        return SliceHost::run({number, arguments.value(3).toInt()}, arguments.value(4).toInt(),
                              arguments.value(5).toInt());
    qFatal("there is no host %s", qPrintable(name));
}
