// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdKeys.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

namespace velmora {

/// A video ad whose video and still image are cached. All members always belong to the same ad,
/// because they are passed on as one value.
struct VideoAd {
    /// The video's local file; empty when there is no video.
    QUrl file;
    /// The local file of the picture that is shown after the video.
    QUrl still;
    /// The link that a click opens, in the store application's scheme.
    QUrl link;
    /// The ad object as the server sent it.
    QJsonObject info;

    /// The advertised application's name; a null string when the ad has none.
    QString name() const { return info.value(kMainNameKey).toString(); }
};

} // namespace velmora
