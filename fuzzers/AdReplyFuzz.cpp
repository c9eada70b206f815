// SPDX-License-Identifier: Apache-2.0
// The ad server's reply: what is drawn from it stays on the ad server, in the caches folder, and on
// the web or in the store.
#include "AdKeys.h"
#include "AdReply.h"
#include "CachesFolder.h"
#include "Deployment.h"
#include "Fuzzing.h"
#include "MediaAddress.h"
#include "RandomSource.h"
#include "StoreLink.h"
#include "WebLink.h"

#include <QtCore/QJsonArray>

#include <random>

using namespace velmora;
using velmora::fuzz::require;

namespace {

class SeededRandom final : public RandomSource {
public:
    quint32 next() override { return m_generator(); }

private:
    std::mt19937 m_generator;
};

void checkMedia(const QJsonObject &ad, const QString &key) {
    const MediaAddress address = MediaAddress::ofAd(ad, key);
    if (address.remote.isEmpty())
        return;
    const QUrl server(Deployment::current().acsURL);
    require(address.remote.scheme() == server.scheme() &&
                address.remote.authority() == server.authority(),
            "media are on the ad server");
    const QString name = MediaAddress::cachedName(address.remote);
    for (const QChar c : QStringLiteral("/\\:"))
        require(!name.contains(c), "a cached name leads to no other folder");
    require(!name.contains(QChar::Null), "a cached name is not cut off");
    require(!name.isEmpty() && name != u"." && name != u".." &&
                name.compare(CachesFolder::TableName, Qt::CaseInsensitive) != 0,
            "a cached name is that of a media file");
}

void checkLink(const QUrl &link) {
    require(!WebLink::mayOpen(link) || link.scheme() == u"https" || link.scheme() == u"http" ||
                link.scheme() == u"macappstores",
            "only web and store pages are opened");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const AdReply reply = AdReply::parsed(fuzz::bytesOf(data, size));
    require(reply.table.has_value() == reply.error.isEmpty(), "there is a table or an error");
    SeededRandom random;
    RandomSource::setCurrent(&random);
    for (const QString &placement : {kMainBannerKey, kMainVideoKey}) {
        QJsonObject last;
        for (int i = 0; i < 8; ++i) {
            const auto ad = reply.ads.draw(placement, last);
            if (!ad)
                break;
            last = *ad;
            require(reply.table->value(placement).toArray().contains(last),
                    "an ad is in the reply");
            for (const QString &key : {kBannerImgURL, kVideoCapture, kVideoImage})
                checkMedia(last, key);
            const QString link = last.value(kBannerURL).toString();
            for (const QUrl &url :
                 {QUrl(link), StoreLink::bannerLink(link), StoreLink::videoLink(link)})
                checkLink(url);
        }
    }
    RandomSource::setCurrent(nullptr);
    return 0;
}
