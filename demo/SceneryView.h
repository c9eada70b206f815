// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Scenery.h"

#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace demo {

/// The illustration of an entry, with rounded corners. Its height follows its width.
class SceneryView : public QWidget {
    Q_OBJECT

public:
    explicit SceneryView(QWidget *parent = nullptr);

    void setScenery(const Scenery &scenery);

    QSize sizeHint() const override { return {640, 264}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return width * 33 / 80; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    Scenery m_scenery;
    QPixmap m_drawn;
};

} // namespace demo
