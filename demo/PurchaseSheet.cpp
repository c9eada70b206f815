// SPDX-License-Identifier: Apache-2.0
#include "demo/PurchaseSheet.h"

#include "demo/Text.h"
#include "demo/Theme.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace demo {

namespace {

QString look() {
    return QStringLiteral("QPushButton { border: 1px solid %1; border-radius: 6px;"
                          " padding: 7px 16px; background: %5; color: %2; }"
                          "QPushButton:hover, QPushButton:focus { border-color: %3; }"
                          "#buyButton { background: %3; border-color: %3; color: %6; }"
                          "#buyButton:hover { background: %4; }")
        .arg(theme::Line.darker(106).name(), theme::Ink.name(), theme::Accent.name(),
             theme::AccentDark.name(), theme::Surface.name(), theme::OnAccent.name());
}

} // namespace

PurchaseSheet::PurchaseSheet(QWidget *parent) : QDialog(parent) {
    setWindowTitle(Text::of(Text::PurchaseTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    setStyleSheet(look());
    auto *title = new QLabel(Text::of(Text::PurchaseHeading));
    title->setFont(theme::heading(22));
    auto *text = new QLabel(Text::of(Text::PurchaseOffer));
    text->setWordWrap(true);
    text->setFont(theme::text(14));
    QPalette palette = text->palette();
    palette.setColor(QPalette::WindowText, theme::InkSoft);
    text->setPalette(palette);
    auto *later = new QPushButton(Text::of(Text::PurchaseLater));
    auto *buy = new QPushButton(Text::of(Text::PurchaseNow));
    buy->setObjectName(QStringLiteral("buyButton"));
    buy->setFont(theme::text(13, QFont::DemiBold));
    buy->setDefault(true);
    connect(later, &QPushButton::clicked, this, &QDialog::reject);
    connect(buy, &QPushButton::clicked, this, &QDialog::accept);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch();
    buttons->addWidget(later);
    buttons->addWidget(buy);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(28, 26, 28, 22);
    layout->setSpacing(10);
    layout->addWidget(title);
    layout->addWidget(text);
    layout->addSpacing(6);
    layout->addLayout(buttons);
    setFixedSize(400, 178);
}

} // namespace demo
