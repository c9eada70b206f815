// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora::adserver {

/// Says whether a request's path is meant by a pattern: the path itself ("/lookup"), or, when the
/// pattern ends in '*', everything that begins with what stands before it ("/media/*", "*").
/// The query is no part of a path. Usable from any thread.
bool matchesPath(const QString &pattern, const QString &path);

} // namespace velmora::adserver
