// SPDX-License-Identifier: Apache-2.0
// A plugin that advertises in its host's window.
#include "PluginHost.h"

#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Velmora.h>

#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtWidgets/QWidget>

namespace {

// Until the window is active, which splash screens need.
constexpr int ActivationMs = 50;

// Given back before the plugin is unloaded, as a plugin must with what calls its code.
velmora::NotificationCenter::Observation s_reached;

void beginSplashScreen(QWidget *window, const QString &reached, void (*ready)()) {
    s_reached = velmora::NotificationCenter::defaultCenter().addObserver(
        reached, [ready](const velmora::Notification &) { ready(); });
    Velmora::addSplashScreenToWindow(window);
}

} // namespace

extern "C" Q_DECL_EXPORT void beginAdvertising(QWidget *window, const char *state,
                                               void (*ready)()) {
    const QString wanted = QString::fromLocal8Bit(state);
    if (wanted == QLatin1String("idle")) {
        Velmora::isADSRemoved();
        ready();
    } else if (wanted == QLatin1String("banner")) {
        Velmora::addBannerForWindow(window);
        ready();
    } else if (wanted == QLatin1String("splash")) {
        beginSplashScreen(window, VLMsplashScreenDidShow, ready);
        QTimer::singleShot(ActivationMs, &Velmora::forceShow);
    } else {
        Velmora::setDefaultVideoWithURL(QUrl::fromLocalFile(wanted.section(u':', 1)), {});
        beginSplashScreen(window, VLMadsVideoDidStop, ready);
        QTimer::singleShot(ActivationMs, &Velmora::showWithouSplash);
    }
}

extern "C" Q_DECL_EXPORT void endAdvertising() {
    s_reached = {};
}
