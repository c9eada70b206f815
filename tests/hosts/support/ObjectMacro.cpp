// SPDX-License-Identifier: Apache-2.0
#include "LogMacros.h"

// Without arguments the macro replaces the name wherever it stands, so no declaration survives it.
#define LOG hasLogged() &&

#include <Velmora/Velmora.h>

namespace {
bool hasLogged() {
    return true;
}

bool usesMacro() {
    return LOG true;
}
} // namespace

#undef LOG

bool logsBesideObjectMacro() {
    LOG(QStringLiteral("text"));
    Velmora::LOG(QStringLiteral("level"), QStringLiteral("text"));
    return usesMacro();
}
