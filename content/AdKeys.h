// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QLatin1String>
#include <QtCore/QString>

namespace velmora {

/// The keys of the ad table and of the ad objects in it, as the ad server sends them. Banner and
/// video keys are separate names even where their texts agree today.
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

/// Key of the host's ad identifier in its Info.plist, and what stands in for a missing one.
inline const QString MetrivoAppId = QStringLiteral("MetrivoAppId");
inline const QString DefaultAppId = QStringLiteral("mac.000000.mac-store");

/// What a missing file name leaves at the end of a media path: no such media.
inline const QString MissingNameMark = QStringLiteral("/(null)");

} // namespace velmora
