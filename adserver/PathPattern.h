// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora::adserver {

/// Whether a pattern matches a request's path: it is the path itself ("/lookup"), or it ends in '*'
/// and the path begins with the rest ("/media/*", "*"). The path is without its query. Any thread.
bool matchesPath(const QString &pattern, const QString &path);

} // namespace velmora::adserver
