// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QAccessibleWidget>

namespace velmora {

/// The view of a banner as assistive technology finds it: a group whose only child is the picture,
/// also when the picture is in a native window of its own (BannerNativeWindow).
class BannerAccessible : public QAccessibleWidget {
public:
    explicit BannerAccessible(QWidget *banner) : QAccessibleWidget(banner, QAccessible::Grouping) {}

    /// Makes QAccessible use this class for a banner's view.
    /// @param picture its child, a button of controls/
    static void install(QWidget *banner, QWidget *picture);

    int childCount() const override { return picture() ? 1 : 0; }
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

private:
    QWidget *picture() const;
};

} // namespace velmora
