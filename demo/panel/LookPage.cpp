// SPDX-License-Identifier: Apache-2.0
#include "demo/panel/LookPage.h"

#include "demo/AppIcon.h"
#include "demo/JournalEntry.h"
#include "demo/panel/ColorButton.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QSlider>

namespace demo {

namespace {
constexpr QSize PictureSize(1600, 1000);
constexpr int IconSide = 512;

// The choices of a background picture. Those after the first two are the journal's illustrations.
enum Picture { NoPicture, Night, FirstEntry };

QImage pictureOf(int choice) {
    if (choice == NoPicture)
        return SplashLook::noPicture();
    if (choice == Night)
        return SplashLook::night().picture;
    return JournalEntry::all().at(choice - FirstEntry).scenery.picture(PictureSize);
}

} // namespace

LookPage::LookPage(QWidget *window) : m_window(window) {
    addPresets();
    addColors();
    addPicture();
    addPlace();
    addHiding();
    finish();
}

void LookPage::addPresets() {
    addSection(Text::LookPresets);
    // Has no effect on colours that were chosen before; the two buttons choose all of them.
    addChoice(
        Text::LookAppearance,
        {Text::of(Text::LookLight), Text::of(Text::LookDark), Text::of(Text::LookFollowsHost)},
        [](int choice) { Velmora::setSplashScreenAppearance(Velmora::Appearance(choice)); });
    addButton(Text::LookDay, QStringLiteral("dayButton"), [this] { apply(SplashLook::day()); });
    addButton(Text::LookNight, QStringLiteral("nightButton"),
              [this] { apply(SplashLook::night()); });
}

ColorButton *LookPage::addColor(Text::Key text, QColor SplashLook::*color,
                                const std::function<void()> &change) {
    auto *button = new ColorButton(Text::of(text), m_look.*color);
    m_colors.append({button, color});
    connect(button, &ColorButton::colorChosen, this, [this, color, change](const QColor &chosen) {
        m_look.*color = chosen;
        change();
    });
    return button;
}

void LookPage::addColors() {
    const auto addPair = [this](ColorButton *left, ColorButton *right) {
        auto *row = new QWidget;
        auto *grid = new QGridLayout(row);
        grid->setContentsMargins(0, 0, 0, 0);
        grid->setHorizontalSpacing(6);
        grid->addWidget(left, 0, 0);
        grid->addWidget(right, 0, 1);
        grid->setColumnStretch(0, 1);
        grid->setColumnStretch(1, 1);
        addWide(row);
    };
    addSection(Text::LookColors);
    addPair(addColor(Text::LookBackgroundColor, &SplashLook::background,
                     [this] { Velmora::setSplashScreenBackgroundColor(m_look.background); }),
            addColor(Text::LookTextColor, &SplashLook::text,
                     [this] { Velmora::setSplashScreenTextColor(m_look.text); }));
    addSection(Text::LookRing);
    const auto border = [this] {
        Velmora::setSplashScreenTimerBorderColor(m_look.track, m_look.elapsed);
    };
    addPair(addColor(Text::LookSecondsColor, &SplashLook::seconds,
                     [this] { Velmora::setSplashScreenTimerTextColor(m_look.seconds); }),
            addColor(Text::LookDiscColor, &SplashLook::disc,
                     [this] { Velmora::setSplashScreenTimerBackgroundColor(m_look.disc); }));
    addPair(addColor(Text::LookTrackColor, &SplashLook::track, border),
            addColor(Text::LookElapsedColor, &SplashLook::elapsed, border));
    const auto widths = [this](int) {
        m_look.trackWidth = m_trackWidth->value();
        m_look.elapsedWidth = m_elapsedWidth->value();
        Velmora::setSplashScreenTimerBorderWidth(m_look.trackWidth, m_look.elapsedWidth);
    };
    m_trackWidth = addSlider(Text::LookTrackWidth, 0, 12, int(m_look.trackWidth), widths);
    m_elapsedWidth = addSlider(Text::LookElapsedWidth, 0, 12, int(m_look.elapsedWidth), widths);
}

void LookPage::addPicture() {
    addSection(Text::LookPictures);
    QStringList places{Text::of(Text::LookNoPicture), Text::of(Text::LookNightPicture)};
    for (const JournalEntry &entry : JournalEntry::all())
        places.append(entry.title);
    m_picture = addChoice(Text::LookBackgroundPicture, places, [this](int place) {
        m_look.picture = pictureOf(place);
        Velmora::setSplashScreenBackgroundImage(m_look.picture);
    });
    m_scaling = addChoice(Text::LookScaling,
                          {Text::of(Text::LookScaledDown), Text::of(Text::LookStretched),
                           Text::of(Text::LookUnscaled), Text::of(Text::LookScaledToFit)},
                          [this](int scaling) {
                              m_look.scaling = unsigned(scaling);
                              Velmora::setSplashScreenBackgroundImageScaling(m_look.scaling);
                          });
    m_scaling->setCurrentIndex(int(m_look.scaling));
    addChoice(Text::LookIcon, {Text::of(Text::LookSailIcon), Text::of(Text::LookLighthouseIcon)},
              [](int choice) {
                  Scenery lighthouse = JournalEntry::all().first().scenery;
                  lighthouse.motif = Scenery::Motif::Lighthouse;
                  Velmora::setSplashScreenIcon(choice ? lighthouse.picture({IconSide, IconSide})
                                                      : AppIcon::picture(IconSide));
              });
}

void LookPage::addPlace() {
    addSection(Text::LookPlace);
    m_inset = addSlider(Text::LookTopInset, 0, 200, 0, [this](int inset) {
        if (m_onlyHere->isChecked())
            Velmora::setSplashScreenTopInset(inset, m_window);
        else
            Velmora::setSplashScreenTopInset(inset);
    });
    m_onlyHere =
        addCheckBox(Text::LookThisWindowOnly, QStringLiteral("onlyHereBox"), false, [](bool) {});
}

void LookPage::addHiding() {
    addSection(Text::LookHidden);
    const auto add = [this](Text::Key text, void (*set)(bool)) {
        return addCheckBox(text, QString(), false, set);
    };
    add(Text::LookHiddenIcon, &Velmora::setSplashScreenHiddenIcon);
    add(Text::LookHiddenIconBefore, &Velmora::setSplashScreenHiddenIconBeforeVideo);
    add(Text::LookHiddenIconAfter, &Velmora::setSplashScreenHiddenIconAfterVideo);
    add(Text::LookHiddenBackground, &Velmora::setSplashScreenHiddenBackgroundImage);
    add(Text::LookHiddenBackgroundBefore,
        &Velmora::setSplashScreenHiddenBackgroundImageBeforeVideo);
    add(Text::LookHiddenBackgroundAfter, &Velmora::setSplashScreenHiddenBackgroundImageAfterVideo);
    add(Text::LookHiddenButtonBefore, &Velmora::setSplashScreenHiddenButtonBeforeVideo);
    add(Text::LookHiddenButtonAfter, &Velmora::setSplashScreenHiddenButtonAfterVideo);
}

void LookPage::apply(const SplashLook &look) {
    m_look = look;
    for (const auto &[button, color] : std::as_const(m_colors))
        button->setColor(look.*color);
    m_trackWidth->setValue(int(look.trackWidth));
    m_elapsedWidth->setValue(int(look.elapsedWidth));
    m_inset->setValue(int(look.topInset));
    m_picture->setCurrentIndex(look.picture == SplashLook::noPicture() ? NoPicture : Night);
    m_scaling->setCurrentIndex(int(look.scaling));
    look.apply();
}

} // namespace demo
