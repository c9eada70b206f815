// SPDX-License-Identifier: Apache-2.0
#include "demo/panel/BannerPage.h"

#include "demo/JournalWindow.h"
#include "demo/Page.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QSlider>

namespace demo {

BannerPage::BannerPage(JournalWindow *window) : m_window(window) {
    addSection(Text::BannerSize);
    QAbstractButton *large =
        addButton(Text::BannerLarge, QStringLiteral("largeButton"), [this] { setHeight(true); });
    QAbstractButton *small =
        addButton(Text::BannerSmall, QStringLiteral("smallButton"), [this] { setHeight(false); });
    auto *sizes = new QButtonGroup(this);
    for (QAbstractButton *button : {large, small}) {
        button->setCheckable(true);
        sizes->addButton(button);
    }
    large->setChecked(true);
    addSection(Text::BannerPlace);
    m_bottom = addSlider(Text::BannerBottom, 0, 200, 0, [this](int) { setInsets(); });
    m_centre = addSlider(Text::BannerCentre, -200, 200, 0, [this](int) { setInsets(); });
    m_everyWindow =
        addCheckBox(Text::BannerEveryWindow, QStringLiteral("everyBox"), false, [](bool) {});
    addCheckBox(Text::BannerReserveSpace, QStringLiteral("reserveBox"), true,
                &Velmora::setBannersReserveSpace);
    addSection(Text::BannerThisWindow);
    addButton(Text::BannerHide, QStringLiteral("hideButton"), [this] { setHidden(true); });
    addButton(Text::BannerShow, QStringLiteral("showButton"), [this] { setHidden(false); });
    finish();
}

void BannerPage::setHeight(bool large) {
    if (m_everyWindow->isChecked())
        large ? Velmora::setBannersLargeImage() : Velmora::setBannersSmallImage();
    else if (large)
        Velmora::setBannerLargeImageToWindow(m_window);
    else
        Velmora::setBannerSmallImageToWindow(m_window);
}

void BannerPage::setInsets() {
    if (m_everyWindow->isChecked()) {
        Velmora::setBannersBottomInset(m_bottom->value());
        Velmora::setBannersCenterXInset(m_centre->value());
    } else {
        Velmora::setBannerBottomInset(m_bottom->value(), m_window);
        Velmora::setBannerCenterXInset(m_centre->value(), m_window);
    }
}

void BannerPage::setHidden(bool hidden) {
    velmora::ViewController content(m_window->page());
    Velmora::setBannerHidden(hidden, &content);
}

} // namespace demo
