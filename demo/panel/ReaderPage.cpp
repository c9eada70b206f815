// SPDX-License-Identifier: Apache-2.0
#include "demo/panel/ReaderPage.h"

#include "demo/Reader.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>

namespace demo {

namespace {
constexpr double Scales[] = {1, 1.25, 1.5, 2};
}

ReaderPage::ReaderPage(Reader &reader) : m_reader(reader) {
    addSection(Text::ReaderAtOnce);
    addSwitches();
    addSection(Text::ReaderAfterRestart);
    addLanguage();
    addScale();
    addCheckBox(Text::ReaderDark, QStringLiteral("darkBox"), m_reader.surroundings().isDark,
                [this](bool on) { change([on](Surroundings &s) { s.isDark = on; }); });
    m_restart = addButton(
        Text::ReaderRestart, QStringLiteral("restartButton"), [this] { m_reader.restart(); }, true);
    m_restart->setEnabled(m_reader.needsRestart());
    finish();
}

void ReaderPage::addSwitches() {
    const Surroundings &now = m_reader.surroundings();
    addCheckBox(Text::ReaderRightToLeft, QStringLiteral("rightToLeftBox"), now.isRightToLeft,
                [this](bool on) { change([on](Surroundings &s) { s.isRightToLeft = on; }); });
    addCheckBox(Text::ReaderReducedMotion, QStringLiteral("motionBox"), now.hasReducedMotion,
                [this](bool on) { change([on](Surroundings &s) { s.hasReducedMotion = on; }); });
    auto *speech =
        addCheckBox(Text::ReaderSpeech, QStringLiteral("speechBox"), m_reader.speech().isVisible(),
                    [this](bool on) { m_reader.speech().setVisible(on); });
    connect(&m_reader.speech(), &SpeechWindow::closed, speech,
            [speech] { speech->setChecked(false); });
}

void ReaderPage::addLanguage() {
    QStringList names{Text::of(Text::ReaderSystemLanguage)};
    int current = 0;
    for (const auto &[code, name] : Surroundings::languages()) {
        if (code == m_reader.surroundings().language)
            current = int(names.size());
        names.append(name);
    }
    QComboBox *box = addChoice(Text::ReaderLanguage, names, [this](int index) {
        change([index](Surroundings &s) {
            s.language = index > 0 ? Surroundings::languages().at(index - 1).first : QString();
        });
    });
    box->setCurrentIndex(current);
}

void ReaderPage::addScale() {
    QStringList names;
    int current = 0;
    for (const double scale : Scales) {
        if (scale == m_reader.surroundings().scale)
            current = int(names.size());
        names.append(QStringLiteral("%1 %").arg(scale * 100));
    }
    QComboBox *box = addChoice(Text::ReaderScale, names, [this](int index) {
        change([index](Surroundings &s) { s.scale = Scales[index]; });
    });
    box->setCurrentIndex(current);
}

void ReaderPage::change(const std::function<void(Surroundings &)> &change) {
    Surroundings wanted = m_reader.surroundings();
    change(wanted);
    m_reader.setSurroundings(wanted);
    m_restart->setEnabled(m_reader.needsRestart());
}

} // namespace demo
