// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QDialog>

namespace demo {

/// Offers the journal without advertising. Nothing is charged, it is a demo.
class PurchaseSheet : public QDialog {
    Q_OBJECT

public:
    explicit PurchaseSheet(QWidget *parent);
};

} // namespace demo
