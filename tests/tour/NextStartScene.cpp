// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/NextStartScene.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "tests/tour/Waiting.h"

#include <Velmora/Velmora.h>

namespace demo::tour {

namespace {
// Long enough for an online start to show its banner.
constexpr int WatchMs = 2000;
} // namespace

void NextStartScene::play() {
    expect(Velmora::isADSRemoved(), QStringLiteral("ads still removed"));
    if (!openWindow())
        return;
    expect(Waiting::whileHolds(
               [this] { return !m_window->page()->banner() && m_server.requests() == 0; }, WatchMs),
           QStringLiteral("a start without a banner and without any request"));
    picture(QStringLiteral("next-start-without-ads"));
}

} // namespace demo::tour
