// SPDX-License-Identifier: Apache-2.0
#include "tests/support/Waiting.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEvent>
#include <QtCore/QEventLoop>
#include <QtCore/QThread>

namespace velmora::test {

void handleEvents() {
    for (int turn = 0; turn < 4; ++turn) {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

bool eventually(const std::function<bool()> &condition, int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    for (;;) {
        handleEvents();
        if (condition())
            return true;
        if (clock.hasExpired(timeoutMs))
            return false;
        QThread::msleep(2);
    }
}

void quietly(int milliseconds) {
    eventually([] { return false; }, milliseconds);
}

} // namespace velmora::test
