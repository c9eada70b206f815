// SPDX-License-Identifier: Apache-2.0
#include "Elements.h"
#include "Hosts.h"

#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QVBoxLayout>

namespace gallery {

namespace {

QDialog *makeDialog(QWidget *parent) {
    auto *dialog = marked(new QDialog(parent), {560, 440});
    auto *column = new QVBoxLayout(dialog);
    column->addWidget(makeForm());
    column->addWidget(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
    return dialog;
}

void openDialog(Gallery &gallery) {
    QDialog *dialog = makeDialog(nullptr);
    gallery.add(dialog);
    dialog->show();
}

// The main window is blocked while its dialog is open.
void openModalDialog(Gallery &gallery) {
    auto *window = marked(new QMainWindow, {900, 640});
    window->setCentralWidget(new QWidget);
    QDialog *dialog = makeDialog(window);
    gallery.add(window);
    gallery.add(dialog);
    window->show();
    dialog->open();
}

} // namespace

Hosts dialogHosts() {
    return {{"Dialog", openDialog}, {"ModalDialog", openModalDialog}};
}

} // namespace gallery
