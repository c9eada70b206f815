// SPDX-License-Identifier: Apache-2.0
#include "demo/panel/PanelPage.h"

#include "demo/Theme.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

namespace demo {

namespace {

constexpr int Columns = 4;
constexpr int LabelWidth = 92;

// A control that ignores the wheel, which is to scroll the page.
template<class Control>
class WithoutWheel : public Control {
public:
    using Control::Control;

protected:
    void wheelEvent(QWheelEvent *event) override { event->ignore(); }
};

} // namespace

QString PanelPage::look() {
    return QStringLiteral(
               "QScrollArea, #pageContent { background: transparent; border: none; }"
               "QPushButton { background: %5; border: 1px solid %1; border-radius: 6px;"
               " padding: 5px 8px; color: %2; }"
               "QPushButton:hover { border-color: %3; }"
               "QPushButton:pressed, QPushButton:checked { background: %3; border-color: %3;"
               " color: %6; }"
               "QPushButton:focus { border-color: %3; }"
               "QPushButton:disabled { color: %4; }"
               "QLineEdit { background: %5; border: 1px solid %1; border-radius: 6px;"
               " padding: 3px 6px; color: %2; min-height: 20px; }"
               "QLineEdit:focus { border-color: %3; }"
               "QSlider::groove:horizontal { height: 4px; border-radius: 2px; background: %1; }"
               "QSlider::handle:horizontal { width: 14px; margin: -6px 0; border-radius: 7px;"
               " background: %5; border: 1px solid %4; }"
               "QSlider::handle:horizontal:hover, QSlider::handle:horizontal:focus {"
               " border-color: %3; }"
               "QListView { background: %5; border: 1px solid %1; border-radius: 6px; }")
        .arg(theme::Line.name(), theme::Ink.name(), theme::Accent.name(), theme::LineStrong.name(),
             theme::Surface.name(), theme::OnAccent.name());
}

QLabel *PanelPage::newCaption(Text::Key text) {
    auto *caption = new QLabel(Text::of(text));
    caption->setFont(theme::label(11));
    QPalette palette = caption->palette();
    palette.setColor(QPalette::WindowText, theme::InkSoft);
    caption->setPalette(palette);
    return caption;
}

PanelPage::PanelPage() {
    auto *content = new QWidget;
    content->setObjectName(QStringLiteral("pageContent"));
    m_column = new QVBoxLayout(content);
    m_column->setContentsMargins(16, 4, 16, 8);
    m_column->setSpacing(14);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    setWidget(content);
}

void PanelPage::addSection(Text::Key caption) {
    auto *box = new QWidget;
    m_section = new QGridLayout(box);
    m_section->setContentsMargins(0, 0, 0, 0);
    m_section->setHorizontalSpacing(6);
    m_section->setVerticalSpacing(6);
    for (int column = 0; column < Columns; ++column)
        m_section->setColumnStretch(column, 1);
    m_half = false;
    addWide(newCaption(caption));
    m_column->addWidget(box);
}

QAbstractButton *PanelPage::addButton(Text::Key text, const QString &name,
                                      const std::function<void()> &action, bool wide) {
    auto *button = new QPushButton(Text::of(text));
    button->setObjectName(name);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QAbstractButton::clicked, this, action);
    if (wide) {
        addWide(button);
    } else {
        const int row = m_half ? m_section->rowCount() - 1 : m_section->rowCount();
        m_section->addWidget(button, row, m_half ? Columns / 2 : 0, 1, Columns / 2);
        m_half = !m_half;
    }
    return button;
}

QCheckBox *PanelPage::addCheckBox(Text::Key text, const QString &name, bool on,
                                  const std::function<void(bool)> &action) {
    auto *box = new QCheckBox(Text::of(text));
    box->setObjectName(name);
    box->setChecked(on);
    connect(box, &QCheckBox::toggled, this, action);
    addWide(box);
    return box;
}

QSlider *PanelPage::addSlider(Text::Key text, int least, int most, int value,
                              const std::function<void(int)> &action) {
    auto *slider = new WithoutWheel<QSlider>(Qt::Horizontal);
    slider->setRange(least, most);
    slider->setValue(value);
    slider->setMinimumHeight(22);
    slider->setAccessibleName(Text::of(text));
    auto *number = new QLabel(QString::number(value));
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    number->setMinimumWidth(32);
    auto *both = new QWidget;
    auto *layout = new QHBoxLayout(both);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(slider, 1);
    layout->addWidget(number);
    connect(slider, &QSlider::valueChanged, this, [number, action](int now) {
        number->setNum(now);
        action(now);
    });
    addRow(text, both);
    return slider;
}

QSpinBox *PanelPage::addSpinBox(Text::Key text, int least, int most, int value,
                                const std::function<void(int)> &action) {
    auto *box = new WithoutWheel<QSpinBox>;
    box->setRange(least, most);
    box->setValue(value);
    box->setSuffix(QStringLiteral(" s"));
    box->setAccessibleName(Text::of(text));
    connect(box, &QSpinBox::valueChanged, this, action);
    addRow(text, box);
    return box;
}

QComboBox *PanelPage::addChoice(Text::Key text, const QStringList &choices,
                                const std::function<void(int)> &action) {
    auto *box = new WithoutWheel<QComboBox>;
    box->addItems(choices);
    box->setAccessibleName(Text::of(text));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(box, &QComboBox::activated, this, action);
    addRow(text, box);
    return box;
}

void PanelPage::addRow(Text::Key text, QWidget *control) {
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *label = new QLabel(Text::of(text));
    label->setFixedWidth(LabelWidth);
    layout->addWidget(label);
    layout->addWidget(control, 1);
    addWide(row);
}

void PanelPage::addWide(QWidget *control) {
    m_section->addWidget(control, m_section->rowCount(), 0, 1, Columns);
    m_half = false;
}

void PanelPage::finish() {
    m_column->addStretch(1);
}

} // namespace demo
