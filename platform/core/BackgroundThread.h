// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

#include <functional>

namespace velmora {

/// Runs work on a new detached thread. The framework starts all its threads here, except the
/// network thread, which is a QThread because QNetworkAccessManager needs Qt's event loop.
///
/// Nobody joins the thread, so the work must own, or share, everything it uses. All signals are
/// blocked on it, so that the host's signal handlers never run there. Any thread may call this.
/// @param name  the thread's name in debuggers and system tools, at most 15 characters; a literal
/// @param error receives the system's reason when there is no thread; may be null
/// @return false when the system gives no thread; the work is then destroyed without being run
bool startBackgroundThread(const char *name, std::function<void()> work, QString *error);

} // namespace velmora
