// SPDX-License-Identifier: Apache-2.0
#include "LogMacros.h"

#include <Velmora/AdsMacHelper.h>
#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Reachability.h>
#include <Velmora/StandardNames.h>
#include <Velmora/Support.h>

#include <QtCore/QCoreApplication>

#include <cstdio>

// A host without windows that uses the public interface beside advertising. Its status is 0 if
// every result is as expected.
int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    bool ok = true;
    const auto expect = [&ok](bool holds, const char *what) {
        if (!holds)
            std::fprintf(stderr, "support-host: %s\n", what);
        ok = ok && holds;
    };
    using namespace velmora;

    const QString language = StandardNames::curentLocaleIdentifier();
    const QString folder = Bundle::resourseBundleForClass<StandardNames>().resourcePath();
    const auto texts = StandardNames::getInfoFromURL(
        QUrl(QStringLiteral("qrc%1/%2.lproj/Localizable.strings").arg(folder, language)));
    const QString key = QStringLiteral("RemoveAdsText");
    expect(texts.contains(key) && texts.value(key) == VLMStringFromKey(key), "no strings");
    AdsMacHelper::getSystemUUID();
    expect(logsBesideFunctionMacro() && logsBesideObjectMacro(), "a macro LOG was changed");

    const auto monitor =
        Reachability::reachabilityWithURL(QUrl(QStringLiteral("https://127.0.0.1")));
    expect(monitor && monitor->isReachable() && monitor->targetPort() == 443, "no route to itself");
    const ReachabilityFlags flags = monitor->reachabilityFlags();
    expect(flags & ReachabilityFlagIsLocalAddress, "not local");
    monitor->reachabilityBlock = [](Reachability *, ReachabilityFlags) {};
    const auto changes = NotificationCenter::defaultCenter().addObserver(
        kReachabilityChangedNotification, QVariant::fromValue(monitor),
        [](const Notification &) {});
    expect(monitor->startNotifier(), "no notifier");
    monitor->stopNotifier();
    return ok ? 0 : 1;
}
