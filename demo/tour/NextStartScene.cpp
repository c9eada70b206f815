// SPDX-License-Identifier: Apache-2.0
#include "demo/tour/NextStartScene.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "demo/tour/Waiting.h"

#include <Velmora/Velmora.h>

namespace demo {

namespace {
// An online start shows its banner well within this time.
constexpr int WatchMs = 2000;
} // namespace

void NextStartScene::play() {
    expect(Velmora::isADSRemoved(), QStringLiteral("ads still switched off"));
    if (!openWindow())
        return;
    expect(Waiting::whileHolds(
               [this] { return !m_window->page()->banner() && m_demo.server().requests() == 0; },
               WatchMs),
           QStringLiteral("a start without banner and without any request"));
    picture(QStringLiteral("next-start-without-ads"));
}

} // namespace demo
