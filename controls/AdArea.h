// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"

#include <QtWidgets/QAbstractButton>

namespace velmora {

/// A part of an ad that opens its link: a button without the clicks that nobody has meant. It
/// ignores presses of mouse and keyboard for some time after its content has changed, presses
/// beside the picture, and the second press of a double click. It swallows what it ignores.
/// click(), which assistive technology calls, always works. Main thread only.
class AdArea : public QAbstractButton {
    Q_OBJECT

public:
    explicit AdArea(QWidget *parent = nullptr);

    /// Ignores presses for some time from now, in place of an earlier time.
    void ignorePressesFor(double seconds);
    /// Ignores presses until ignorePressesFor() is called.
    void ignorePresses();

    /// Clicks a button for a key: as click(), unless it is an ad that ignores presses.
    static void clickByKey(QAbstractButton *button);

    /// Where the ad is, in the widget's coordinates; what is beside it opens nothing.
    virtual QRect adRect() const { return rect(); }

protected:
    bool hitButton(const QPoint &point) const override { return adRect().contains(point); }
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool isIgnoring() const;

    TimeSource::Duration m_ignoresUntil{0};
};

} // namespace velmora
