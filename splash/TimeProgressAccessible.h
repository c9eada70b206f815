// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeProgressView.h"

#include <QtWidgets/QAccessibleWidget>

namespace velmora {

/// The countdown ring as assistive technology finds it: a progress bar from 0 to 100 that can't be
/// moved.
class TimeProgressAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit TimeProgressAccessible(TimeProgressView *ring)
        : QAccessibleWidget(ring, QAccessible::ProgressBar) {}

    /// Makes QAccessible use this class for rings.
    static void install();

    void *interface_cast(QAccessible::InterfaceType type) override;
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &) override {}
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }
};

} // namespace velmora
