// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QStringList>

namespace demo::tour {

/// Reads the finished timeline in a folder and checks that the phases of the splash screens came in
/// order and on time, and that every notification occurred at least once.
/// @return what is wrong, a line each
QStringList checkTimeline(const QString &folder);

} // namespace demo::tour
