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

// The background's choices; the journal's entries follow.
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
    addSection(QStringLiteral("Whole looks"));
    addButton(QStringLiteral("Day"), QStringLiteral("dayButton"),
              [this] { apply(SplashLook::day()); });
    addButton(QStringLiteral("Night"), QStringLiteral("nightButton"),
              [this] { apply(SplashLook::night()); });
}

ColorButton *LookPage::addColor(const QString &text, QColor SplashLook::*color,
                                const std::function<void()> &change) {
    auto *button = new ColorButton(text, m_look.*color);
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
    addSection(QStringLiteral("Colours"));
    addPair(addColor(QStringLiteral("Background"), &SplashLook::background,
                     [this] { Velmora::setSplashScreenBackgroundColor(m_look.background); }),
            addColor(QStringLiteral("Text"), &SplashLook::text,
                     [this] { Velmora::setSplashScreenTextColor(m_look.text); }));
    addSection(QStringLiteral("Ring"));
    const auto border = [this] {
        Velmora::setSplashScreenTimerBorderColor(m_look.track, m_look.elapsed);
    };
    addPair(addColor(QStringLiteral("Seconds"), &SplashLook::seconds,
                     [this] { Velmora::setSplashScreenTimerTextColor(m_look.seconds); }),
            addColor(QStringLiteral("Disc"), &SplashLook::disc,
                     [this] { Velmora::setSplashScreenTimerBackgroundColor(m_look.disc); }));
    addPair(addColor(QStringLiteral("Track"), &SplashLook::track, border),
            addColor(QStringLiteral("Elapsed"), &SplashLook::elapsed, border));
    const auto widths = [this](int) {
        m_look.trackWidth = m_trackWidth->value();
        m_look.elapsedWidth = m_elapsedWidth->value();
        Velmora::setSplashScreenTimerBorderWidth(m_look.trackWidth, m_look.elapsedWidth);
    };
    m_trackWidth = addSlider(QStringLiteral("Track width"), 0, 12, int(m_look.trackWidth), widths);
    m_elapsedWidth =
        addSlider(QStringLiteral("Elapsed, plus"), 0, 12, int(m_look.elapsedWidth), widths);
}

void LookPage::addPicture() {
    addSection(QStringLiteral("Pictures"));
    QStringList places{QStringLiteral("None"), QStringLiteral("Pines at night")};
    for (const JournalEntry &entry : JournalEntry::all())
        places.append(entry.title);
    m_picture = addChoice(QStringLiteral("Background"), places, [this](int place) {
        m_look.picture = pictureOf(place);
        Velmora::setSplashScreenBackgroundImage(m_look.picture);
    });
    m_scaling =
        addChoice(QStringLiteral("Filling"),
                  {QStringLiteral("Smaller if it has to be"), QStringLiteral("Stretched"),
                   QStringLiteral("In its own size"), QStringLiteral("As large as it fits")},
                  [this](int scaling) {
                      m_look.scaling = unsigned(scaling);
                      Velmora::setSplashScreenBackgroundImageScaling(m_look.scaling);
                  });
    m_scaling->setCurrentIndex(int(m_look.scaling));
    addChoice(QStringLiteral("Icon"), {QStringLiteral("Sail"), QStringLiteral("Lighthouse")},
              [](int choice) {
                  Scenery lighthouse = JournalEntry::all().first().scenery;
                  lighthouse.motif = Scenery::Motif::Lighthouse;
                  Velmora::setSplashScreenIcon(choice ? lighthouse.picture({IconSide, IconSide})
                                                      : AppIcon::picture(IconSide));
              });
}

void LookPage::addPlace() {
    addSection(QStringLiteral("Place"));
    m_inset = addSlider(QStringLiteral("Top inset"), 0, 200, 0, [this](int inset) {
        if (m_onlyHere->isChecked())
            Velmora::setSplashScreenTopInset(inset, m_window);
        else
            Velmora::setSplashScreenTopInset(inset);
    });
    m_onlyHere = addCheckBox(QStringLiteral("In this window only"), QStringLiteral("onlyHereBox"),
                             false, [](bool) {});
}

void LookPage::addHiding() {
    addSection(QStringLiteral("Hidden, from the next screen on"));
    const auto add = [this](const char *text, void (*set)(bool)) {
        return addCheckBox(QString::fromLatin1(text), QString(), false, set);
    };
    add("Icon", &Velmora::setSplashScreenHiddenIcon);
    add("Icon before the video", &Velmora::setSplashScreenHiddenIconBeforeVideo);
    add("Icon after the video", &Velmora::setSplashScreenHiddenIconAfterVideo);
    add("Background", &Velmora::setSplashScreenHiddenBackgroundImage);
    add("Background before the video", &Velmora::setSplashScreenHiddenBackgroundImageBeforeVideo);
    add("Background after the video", &Velmora::setSplashScreenHiddenBackgroundImageAfterVideo);
    add("Button before the video", &Velmora::setSplashScreenHiddenButtonBeforeVideo);
    add("Button after the video", &Velmora::setSplashScreenHiddenButtonAfterVideo);
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
