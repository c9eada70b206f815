// SPDX-License-Identifier: Apache-2.0
#include "StoredAds.h"

#include "AdKeys.h"
#include "AdTableFile.h"

namespace velmora {

std::optional<StoredAds> StoredAds::read(const QString &path,
                                         const std::function<bool()> &isWanted) {
    StoredAds ads;
    ads.all = AdTableFile::read(path, isWanted).value_or(AdCollection());
    for (const QString &placement : {kMainBannerKey, kMainVideoKey}) {
        const QJsonArray elements = ads.all.ads(placement);
        for (const QJsonValue &ad : elements) {
            if (!isWanted())
                return {};
            ads.drawable.add(placement, ad.toObject());
        }
    }
    return isWanted() ? std::optional(std::move(ads)) : std::nullopt;
}

} // namespace velmora
