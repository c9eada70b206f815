// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AncestorFilter.h"
#include "NativeSiblings.h"
#include "OverlayWindow.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <memory>

namespace velmora {

/// Keeps a banner's picture visible where native child windows of the host (a game engine's view, a
/// window container) would hide it: there the picture is moved into a native window of its own over
/// the banner's place, and back when the native windows are gone. Main thread only.
class BannerNativeWindow : public QObject {
    Q_OBJECT

public:
    /// @param place   the banner's view in the host's content, which owns this
    /// @param picture the child that fills the place
    BannerNativeWindow(QWidget *place, QWidget *picture);

    /// Whether the picture is in a native window now.
    bool isNative() const { return m_window != nullptr; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followSuperview();
    void updateLater();
    void update();
    void enterWindow(QWidget *superview);
    void leaveWindow();

    QWidget *m_place;
    QPointer<QWidget> m_picture;
    AncestorFilter m_ancestors{this};
    std::unique_ptr<NativeSiblings> m_siblings;
    std::unique_ptr<OverlayWindow> m_window;
    bool m_updatePosted = false;
    bool m_isWindowLost = false;
};

} // namespace velmora
