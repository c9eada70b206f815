// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora {

/// The keys of the ad table and of its ad objects, as the ad server sends them. Banners and videos
/// have separate constants even where the text is the same, so that one can change alone.
inline const QString kMainNameKey = QStringLiteral("VLMAppName");
inline const QString kMainBannerKey = QStringLiteral("standard");
inline const QString kMainVideoKey = QStringLiteral("video");

inline const QString kBannerURL = QStringLiteral("market_url");
inline const QString kBannerImgURL = QStringLiteral("image_728x90");
inline const QString kBannerPriority = QStringLiteral("priority");
inline const QString kBannerId = QStringLiteral("banner_id");
inline const QString kBannerName = QStringLiteral("name");
inline const QString kBannerUpdated = QStringLiteral("updated");

inline const QString kVideoURL = QStringLiteral("market_url");
inline const QString kVideoCapture = QStringLiteral("video_file_landscape");
inline const QString kVideoImage = QStringLiteral("image");
inline const QString kVideoPriority = QStringLiteral("priority");
inline const QString kVideoBannerId = QStringLiteral("banner_id");
inline const QString kVideoName = QStringLiteral("name");
inline const QString kVideoUpdated = QStringLiteral("updated");
inline const QString kVideoTitle = QStringLiteral("title");
inline const QString kVideoVotes = QStringLiteral("votes");
inline const QString kVideoRating = QStringLiteral("Rating");

/// The key of the host's ad identifier in its Info.plist, and the identifier of a host without one.
inline const QString MetrivoAppId = QStringLiteral("MetrivoAppId");
inline const QString DefaultAppId = QStringLiteral("mac.000000.mac-store");

/// The end of a local media path when the ad names no file (MediaAddress::cachedName()). A path
/// with it counts as no media.
inline const QString MissingNameMark = QStringLiteral("/(null)");

} // namespace velmora
