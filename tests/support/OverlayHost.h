// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Overlay.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/VirtualTime.h"

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPushButton>

namespace velmora::test {

/// A host with text fields in its content and its tool bar, and an overlay with two buttons over
/// the content.
class OverlayHost : public FreshProcess {
protected:
    OverlayHost();
    ~OverlayHost() override;

    /// A new window; the overlay is gone.
    void reset();
    void make(Overlay::Kind kind);
    /// Makes a window the active one; a window manager may ignore a wish that comes early.
    static bool activate(QWidget *widget);
    /// A key as it comes from the window system.
    void press(Qt::Key key);

    VirtualTime time;
    std::unique_ptr<QMainWindow> window;
    QPointer<QWidget> content;
    QPointer<QLineEdit> name, city;
    QPointer<QLineEdit> search;
    QPointer<QWidget> view;
    QPointer<QPushButton> close, more;
    std::unique_ptr<Overlay> overlay;
    QStringList clicked;
};

} // namespace velmora::test
