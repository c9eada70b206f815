// SPDX-License-Identifier: Apache-2.0
#include "LogMacros.h"

// As logging libraries define it.
#define LOG(...) logged(#__VA_ARGS__)

#include <Velmora/Velmora.h>

namespace {
bool logged(const char *arguments) {
    return QByteArray(arguments) == "INFO";
}
} // namespace

bool logsBesideFunctionMacro() {
    (LOG)(QStringLiteral("text"));
    (Velmora::LOG)(QStringLiteral("level"), QStringLiteral("text"));
    return LOG(INFO);
}
