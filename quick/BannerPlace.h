// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

namespace velmora {

/// The widget that a banner is added to when it is drawn off screen. It draws nothing itself, and
/// is of a class of its own so that no style sheet of the host draws its background.
class BannerPlace : public QWidget {
    Q_OBJECT

public:
    BannerPlace();

Q_SIGNALS:
    /// A child was added or removed; it may be under construction or half destroyed.
    void childrenChanged();

protected:
    void childEvent(QChildEvent *event) override;
};

} // namespace velmora
