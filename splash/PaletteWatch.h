// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// Watches the palette of a window: the host, its style sheet or the desktop may change it. Main
/// thread only.
class PaletteWatch : public QObject {
    Q_OBJECT

public:
    PaletteWatch(QWidget *window, std::function<void()> changed);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void()> m_changed;
};

} // namespace velmora
