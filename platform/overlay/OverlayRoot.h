// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

namespace velmora {

/// The widget whose native window an OverlayWindow shows. A native window can't be transparent:
/// where its view draws nothing, such as in rounded corners, it has the colour of the view's
/// property "color", or is black, whatever the host's palette and style sheet are.
/// Main thread only.
class OverlayRoot : public QWidget {
    Q_OBJECT

public:
    OverlayRoot() { setAttribute(Qt::WA_NoSystemBackground); }

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace velmora
