// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

namespace velmora {

/// Keeps the user from resizing a host's window while a splash screen covers it, and changes the
/// window's collection behaviour for that time. Main thread only.
class SplashScreenWindowLock {
public:
    /// Null is ignored, here and in unlock().
    void lock(QWidget *window);
    /// Makes the window resizable again, within the size limits that its host has set. Its
    /// collection behaviour becomes FullScreenPrimary, whatever it was before: hosts rely on that.
    void unlock(QWidget *window);

    // What the window had when it was locked last.
    quint64 oldCollectionBehavior() const { return m_oldCollectionBehavior; }
    bool wasResizable() const { return m_wasResizable; }

private:
    quint64 m_oldCollectionBehavior = 0;
    bool m_wasResizable = false;
};

} // namespace velmora
