// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora::test {

/// Draws all pictures of a folder, "DESKTOP-HOST.N-STAGE.png", into "contact-sheet.png" there: a
/// group for each host, with its name below. @return false when the file can't be written
bool writeContactSheet(const QString &folder);

} // namespace velmora::test
