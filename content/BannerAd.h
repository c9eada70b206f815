// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

#include <functional>

namespace velmora {

/// A banner that has been drawn and whose picture is there, as one value from the draw to whoever
/// asked for it.
struct BannerAd {
    /// The picture, a local file; empty when there is no banner.
    QUrl file;
    /// Where a click leads, in store-application form.
    QUrl link;
    QString name;
};

/// Called when a request for a banner has ended.
/// @param ready     the banner that is ready now: the one asked for, or the last one before it
///                  when nothing could be drawn or downloaded
/// @param hasFailed the one asked for could not be downloaded: whoever shows a banner keeps it
using BannerCompletion = std::function<void(const BannerAd &ready, bool hasFailed)>;

} // namespace velmora
