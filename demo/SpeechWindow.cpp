// SPDX-License-Identifier: Apache-2.0
#include "demo/SpeechWindow.h"

#include "demo/ScreenReaderVoice.h"
#include "demo/Text.h"
#include "demo/Theme.h"

#include <QtGui/QHideEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace demo {

namespace {
constexpr QSize Size(560, 118);
constexpr int Sentences = 3;
constexpr int GapToScreen = 24;
} // namespace

SpeechWindow::SpeechWindow()
    : QWidget(nullptr, Qt::Tool | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus),
      m_lines(new QLabel) {
    setWindowTitle(Text::of(Text::SpeechTitle));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    QPalette palette;
    palette.setColor(QPalette::WindowText, theme::OnDeep);
    m_lines->setPalette(palette);
    m_lines->setFont(theme::text(14));
    m_lines->setTextFormat(Qt::PlainText);
    m_lines->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 12, 18, 12);
    layout->addWidget(m_lines);
    setFixedSize(Size);
}

SpeechWindow::~SpeechWindow() = default;

void SpeechWindow::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    if (m_voice)
        return;
    place();
    m_voice = std::make_unique<ScreenReaderVoice>();
    connect(m_voice.get(), &ScreenReaderVoice::said, this, &SpeechWindow::add);
}

void SpeechWindow::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    if (event->spontaneous())
        return;
    m_voice.reset();
    m_sentences.clear();
    m_lines->clear();
    Q_EMIT closed();
}

void SpeechWindow::add(const QString &sentence) {
    m_sentences.append(sentence);
    m_sentences = m_sentences.last(std::min(Sentences, int(m_sentences.size())));
    QStringList lines;
    for (const QString &each : std::as_const(m_sentences))
        lines.append(m_lines->fontMetrics().elidedText(each, Qt::ElideRight,
                                                       m_lines->contentsRect().width()));
    m_lines->setText(lines.join(QLatin1Char('\n')));
}

void SpeechWindow::place() {
    const QRect space = screen()->availableGeometry();
    move(space.center().x() - width() / 2, space.bottom() - height() - GapToScreen);
}

void SpeechWindow::paintEvent(QPaintEvent *) {
    QPainter(this).fillRect(rect(), theme::Deep);
}

} // namespace demo
