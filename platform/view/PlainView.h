// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

namespace velmora {

/// A view that draws nothing and holds other views. A QWidget would do but for a host's style
/// sheet: Qt paints the background and border of a rule for QWidget itself, not for its subclasses.
/// Main thread only.
class PlainView : public QWidget {
    Q_OBJECT

public:
    explicit PlainView(QWidget *parent = nullptr) : QWidget(parent) {
        setAttribute(Qt::WA_NoSystemBackground);
    }
};

} // namespace velmora
