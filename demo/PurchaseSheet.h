// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QDialog>

namespace demo {

/// Offers to remove advertising for a price. It is a demo: nothing is charged.
class PurchaseSheet : public QDialog {
    Q_OBJECT

public:
    explicit PurchaseSheet(QWidget *parent);
};

} // namespace demo
