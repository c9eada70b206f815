// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MediaKind.h"

#include <QtCore/QString>

namespace velmora {

/// Looks at a downloaded file before it is kept. A server in trouble sends error pages in place of
/// media, with any status.
class MediaCheck {
public:
    /// Why a file is not usable; empty when it is. A picture is decoded once, which takes a while;
    /// of a film only the beginning is read, to recognise its container. Any thread but the main
    /// one.
    static QString refusal(const QString &path, MediaKind kind);
    /// The same from the file's header alone. Any thread.
    static QString quickRefusal(const QString &path, MediaKind kind);
};

} // namespace velmora
