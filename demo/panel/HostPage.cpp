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
    addSection(Text::HostThisWindow);
    addButton(Text::HostRegister, QStringLiteral("registerButton"),
              [window] { Velmora::addSplashScreenToWindow(window); });
    addButton(Text::HostUnregister, QStringLiteral("unregisterButton"), [window] {
        Velmora::removeSplashScreenFromWindow(window);
        Velmora::removeADSFromWindow(window);
    });
    addButton(
        Text::HostRegisterGame, QStringLiteral("registerGameButton"),
        [window] { Velmora::addSplashScreenToUnityWindow(window); }, true);
    addSection(Text::HostWindows);
    addButton(
        Text::HostSecondWindow, QStringLiteral("windowButton"),
        [this] { Q_EMIT secondWindowWanted(); }, true);
    addCheckBox(Text::HostAutoRemove, QStringLiteral("arcBox"), Velmora::isARCActivate(),
                &Velmora::setARCToWindows);
    addSection(Text::HostPurchase);
    addButton(Text::HostRemoveAds, QStringLiteral("removeButton"),
              [&advertising] { advertising.removeAds(); });
    addButton(Text::HostResetAds, QStringLiteral("resetButton"),
              [&advertising] { advertising.resetAds(); });
    addSection(Text::HostEnvironment);
    addCheckBox(Text::HostServerAnswers, QStringLiteral("serverBox"),
                advertising.server().isRunning(),
                [&advertising](bool on) { advertising.server().setRunning(on); });
    addCheckBox(Text::HostOpenBrowser, QStringLiteral("browserBox"),
                advertising.links().opensBrowser(),
                [&advertising](bool on) { advertising.links().setOpensBrowser(on); });
    finish();
}

} // namespace demo
