// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora::test {

/// Why a host is known to fail in a stage of the test ("start", "video", "end", "after", "banner");
/// empty when it must not fail.
QString knownFault(const QString &host, const QString &stage);

} // namespace velmora::test
