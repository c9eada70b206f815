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
public:
    /// Makes a window the active one. Tries several times, since a window manager may ignore
    /// requests for a window that is new to it. @return false when it did not become active
    static bool activate(QWidget *widget);

protected:
    OverlayHost();
    ~OverlayHost() override;

    /// Deletes the overlay and replaces the window by a new one.
    void reset();
    /// Makes the overlay, hidden.
    void make(Overlay::Kind kind);
    /// Sends a key to the window as the window system does.
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
