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
    addSection(QStringLiteral("Size"));
    QAbstractButton *large = addButton(QStringLiteral("Large"), QStringLiteral("largeButton"),
                                       [this] { setHeight(true); });
    QAbstractButton *small = addButton(QStringLiteral("Small"), QStringLiteral("smallButton"),
                                       [this] { setHeight(false); });
    auto *sizes = new QButtonGroup(this);
    for (QAbstractButton *button : {large, small}) {
        button->setCheckable(true);
        sizes->addButton(button);
    }
    large->setChecked(true);
    addSection(QStringLiteral("Place"));
    m_bottom = addSlider(QStringLiteral("Bottom"), 0, 200, 0, [this](int) { setInsets(); });
    m_centre = addSlider(QStringLiteral("Centre"), -200, 200, 0, [this](int) { setInsets(); });
    m_everyWindow = addCheckBox(QStringLiteral("In every window"), QStringLiteral("everyBox"),
                                false, [](bool) {});
    addSection(QStringLiteral("This window's banner"));
    addButton(QStringLiteral("Hide"), QStringLiteral("hideButton"), [this] { setHidden(true); });
    addButton(QStringLiteral("Show"), QStringLiteral("showButton"), [this] { setHidden(false); });
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
