// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

#include <functional>

namespace velmora {

/// Runs work on a thread of its own that nobody waits for, so the work must own what it uses.
/// The thread handles none of the process's signals. False, with the reason, when the system
/// gives no thread; the work is then dropped.
bool startBackgroundThread(const char *name, std::function<void()> work, QString *error);

} // namespace velmora
