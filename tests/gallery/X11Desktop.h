// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/gallery/Desktop.h"
#include "tests/support/OwnDisplay.h"

namespace velmora::test {

/// A virtual X display with a window manager.
class X11Desktop : public Desktop {
public:
    explicit X11Desktop(const QString &windowManager);

    QString error() const override { return m_display.error(); }
    QProcessEnvironment environment() const override;
    QImage picture() override;
    void click(QPoint point) override;
    std::optional<QPoint> positionOf(const QString &) override { return {}; }

private:
    OwnDisplay m_display;
};

} // namespace velmora::test
