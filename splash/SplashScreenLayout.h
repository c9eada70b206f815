// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenOutlets.h"

#include <QtCore/QObject>
#include <QtCore/QRect>

namespace velmora {

/// Places and sizes the elements of a splash screen for whatever size its root view has: the
/// start screen's column in the middle, the buttons in the corners, pictures and video edge to
/// edge. Owned by the root view. Main thread only.
class SplashScreenLayout : public QObject {
    Q_OBJECT

public:
    SplashScreenLayout(QWidget *root, const SplashScreenOutlets &outlets);

    /// Lays everything out now; the root view's own changes of size do the same.
    void apply();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeOverVideo();
    void placeRemoveAdsButton();
    void placeColumn();
    int scaled(double points, double smallest, double largest) const;

    QWidget *m_root;
    SplashScreenOutlets m_outlets;
    /// 1 in a window of the usual size.
    double m_unit = 1;
    /// Bottom of what the column may use.
    int m_columnBottom = 0;
};

} // namespace velmora
