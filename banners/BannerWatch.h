// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AncestorFilter.h"

#include <QtCore/QObject>
#include <QtWidgets/QWidget>

namespace velmora {

/// Watches one banner's view, and its parents up to the window, and calls BannerAreas::check()
/// after whatever may change the part of the window that the banner covers. Main thread only.
class BannerWatch : public QObject {
    Q_OBJECT

public:
    /// Owned by the view.
    explicit BannerWatch(QWidget *view);
    ~BannerWatch() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_view;
    AncestorFilter m_ancestors{this};
};

} // namespace velmora
