// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"

#include <QtCore/QHash>

namespace velmora {

/// Whether the user is typing: a key is held, or the last keystroke is less than a second ago. Main
/// thread only.
///
/// A held key counts for ten seconds after its last press or repeat, because its release may never
/// arrive: a window manager's shortcut takes it, for example.
class KeyboardUse {
public:
    using Duration = TimeSource::Duration;

    /// @param key identifies a key of the keyboard; is called for a repeat as well
    void pressed(quint32 key);
    void released(quint32 key);
    /// An input method has composed or entered text.
    void textEntered();
    /// The application has lost the keyboard focus, so it does not get the releases.
    void forgetHeldKeys() { m_heldSince.clear(); }

    /// How long the user still counts as typing if no other key event comes; 0 or less: not typing.
    Duration remaining() const;

private:
    /// The time of the last press or repeat of each key that is held.
    QHash<quint32, Duration> m_heldSince;
    /// Until when the last keystroke counts.
    Duration m_until{0};
};

} // namespace velmora
