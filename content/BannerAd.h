// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

#include <functional>

namespace velmora {

/// A banner ad whose picture is cached. Picture, link and name always belong to the same ad,
/// because they are passed on as one value.
struct BannerAd {
    /// The picture's local file; empty when there is no banner.
    QUrl file;
    /// The link that a click opens, in the store application's scheme.
    QUrl link;
    QString name;
};

/// Called on the main thread when a request for a banner has ended.
/// @param ready     the requested banner, or the one before it when nothing could be drawn or
///                  downloaded
/// @param hasFailed a banner was drawn but could not be downloaded: a banner that is on screen
///                  should stay
using BannerCompletion = std::function<void(const BannerAd &ready, bool hasFailed)>;

} // namespace velmora
