// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/Waiting.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

namespace demo::tour {

namespace {
constexpr int PollIntervalMs = 20;
}

bool Waiting::until(const std::function<bool()> &condition, int timeoutMs) {
    const QDeadlineTimer deadline(timeoutMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QEventLoop loop;
        QTimer::singleShot(PollIntervalMs, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

bool Waiting::whileHolds(const std::function<bool()> &condition, int durationMs) {
    return !until([&] { return !condition(); }, durationMs);
}

} // namespace demo::tour
