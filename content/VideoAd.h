// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdKeys.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

namespace velmora {

/// A video ad that can be played. Its parts are always those of one ad; they travel together.
struct VideoAd {
    /// The local files of the film and of the picture shown after it.
    QUrl file;
    QUrl still;
    /// Where a click leads, in store form.
    QUrl link;
    /// The ad as the server described it.
    QJsonObject info;

    /// Name of the advertised application; null when the ad has none.
    QString name() const { return info.value(kMainNameKey).toString(); }
};

} // namespace velmora
