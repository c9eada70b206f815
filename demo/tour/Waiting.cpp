// SPDX-License-Identifier: Apache-2.0
#include "demo/tour/Waiting.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

namespace demo {

namespace {
constexpr int LookEveryMs = 20;
}

bool Waiting::until(const std::function<bool()> &condition, int timeoutMs) {
    const QDeadlineTimer deadline(timeoutMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QEventLoop loop;
        QTimer::singleShot(LookEveryMs, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

bool Waiting::whileHolds(const std::function<bool()> &condition, int durationMs) {
    return !until([&] { return !condition(); }, durationMs);
}

} // namespace demo
