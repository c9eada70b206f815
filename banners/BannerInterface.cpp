// SPDX-License-Identifier: Apache-2.0
#include "BannerInterface.h"

#include "BannerAccessible.h"
#include "BannerMotion.h"
#include "ButtonAccessible.h"
#include "InterfaceImage.h"
#include "InterfaceLoader.h"
#include "PlainView.h"

#include <Velmora/Support.h>

namespace velmora {

QWidget *BannerInterface::load() {
    InterfaceLoader::registerClass<PlainView>(QStringLiteral("PlainView"));
    InterfaceLoader::registerClass<BannerImageView>(QStringLiteral("BannerImageView"));
    InterfaceLoader::registerClass<AdMark>(QStringLiteral("AdMark"));
    InterfaceLoader::registerClass<CloseButtonCell>(QStringLiteral("CloseButtonCell"));
    QWidget *root = InterfaceLoader::load(QStringLiteral("BannerController"));
    if (!root)
        return nullptr;
    m_image = InterfaceLoader::outlet<BannerImageView>(root, QStringLiteral("bannerImage"));
    m_closeButton = InterfaceLoader::outlet<CloseButtonCell>(root, QStringLiteral("closeButton"));
    m_adMark = InterfaceLoader::outlet<AdMark>(root, QStringLiteral("adMark"));
    // First of all, since hiding the view, for example, makes Qt create its accessible interface.
    ButtonAccessible::install();
    if (m_image)
        BannerAccessible::install(root, m_image);
    return root;
}

void BannerInterface::prepare(QWidget *root) {
    if (m_closeButton)
        m_closeButton->setIcon(InterfaceImage::named(QStringLiteral("ads_close_button")));
    PlayButton *playButton = m_image ? (new BannerMotion(m_image))->button() : nullptr;
    const auto name = [](QWidget *element, const char *key) {
        if (element)
            element->setAccessibleName(VLMStringFromKey(QString::fromLatin1(key)));
    };
    name(root, "AdvertisementText");
    name(m_image, "OpenAdText");
    name(m_closeButton, "RemoveAdsText");
    // The close button first, so that nobody comes to the ad without having passed it.
    m_focus = new BannerFocus(root, {m_closeButton, playButton, m_image});
}

void BannerInterface::setInTabOrder(bool isInTabOrder) {
    if (m_focus)
        m_focus->setInTabOrder(isInTabOrder);
}

} // namespace velmora
