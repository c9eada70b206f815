// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

namespace velmora {

/// The widget whose native window an OverlayWindow shows. It is black where its view draws
/// nothing, whatever the host's palette and style sheet are: a native window can't be transparent.
/// Main thread only.
class OverlayRoot : public QWidget {
    Q_OBJECT

public:
    OverlayRoot() { setAttribute(Qt::WA_NoSystemBackground); }

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace velmora
