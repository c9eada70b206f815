// SPDX-License-Identifier: Apache-2.0
#include "Elements.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace gallery {

QWidget *makeButton() {
    auto *button = new QPushButton(QStringLiteral("A button of the host"));
    button->setObjectName(QStringLiteral("targetButton"));
    QObject::connect(button, &QPushButton::clicked, button,
                     [] { print(QStringLiteral("click targetButton")); });
    return button;
}

QWidget *makeForm() {
    auto *form = new QWidget;
    auto *rows = new QFormLayout(form);
    auto *bar = new QProgressBar;
    bar->setValue(40);
    rows->addRow(makeButton());
    rows->addRow(QStringLiteral("Name"), new QLineEdit(QStringLiteral("A text of the host")));
    rows->addRow(QStringLiteral("Progress"), bar);
    rows->addRow(new QCheckBox(QStringLiteral("A choice of the host")));
    auto *rest = new Filled<QWidget>;
    rest->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    rest->setMinimumHeight(200);
    rows->addRow(rest);
    return form;
}

void fill(QWidget *window, QWidget *child) {
    auto *layout = new QVBoxLayout(window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(child);
}

} // namespace gallery
