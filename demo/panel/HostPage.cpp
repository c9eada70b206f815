// SPDX-License-Identifier: Apache-2.0
#include "demo/panel/HostPage.h"

#include "demo/Advertising.h"
#include "demo/DemoServer.h"
#include "demo/JournalWindow.h"
#include "demo/LinkOpener.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QCheckBox>

namespace demo {

HostPage::HostPage(Advertising &advertising, JournalWindow *window) {
    addSection(QStringLiteral("This window's splash screen"));
    addButton(QStringLiteral("Register"), QStringLiteral("registerButton"),
              [window] { Velmora::addSplashScreenToWindow(window); });
    addButton(QStringLiteral("Take out"), QStringLiteral("takeOutButton"), [window] {
        Velmora::removeSplashScreenFromWindow(window);
        Velmora::removeADSFromWindow(window);
    });
    addButton(
        QStringLiteral("Register as a game's window"), QStringLiteral("registerGameButton"),
        [window] { Velmora::addSplashScreenToUnityWindow(window); }, true);
    addSection(QStringLiteral("Windows"));
    addButton(
        QStringLiteral("Open a second window"), QStringLiteral("windowButton"),
        [this] { Q_EMIT secondWindowWanted(); }, true);
    addCheckBox(QStringLiteral("Closing windows leave by themselves"), QStringLiteral("arcBox"),
                Velmora::isARCActivate(), &Velmora::setARCToWindows);
    addSection(QStringLiteral("Purchase"));
    addButton(QStringLiteral("Remove ads"), QStringLiteral("removeButton"),
              [&advertising] { advertising.removeAds(); });
    addButton(QStringLiteral("Reset ads"), QStringLiteral("resetButton"),
              [&advertising] { advertising.resetAds(); });
    addSection(QStringLiteral("Surroundings"));
    addCheckBox(QStringLiteral("Ad server answers"), QStringLiteral("serverBox"),
                advertising.server().isRunning(),
                [&advertising](bool on) { advertising.server().setRunning(on); });
    addCheckBox(QStringLiteral("Open links in the browser"), QStringLiteral("browserBox"),
                advertising.links().opensBrowser(),
                [&advertising](bool on) { advertising.links().setOpensBrowser(on); });
    finish();
}

} // namespace demo
