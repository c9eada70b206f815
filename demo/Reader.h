// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/SpeechWindow.h"
#include "demo/Surroundings.h"

#include <QtCore/QObject>

namespace demo {

/// The person in front of the demo, as far as the demo plays with it: the surroundings that the
/// panel can change. Reading direction and motion change at once, the others need a restart. Also
/// the window with what a screen reader would tell them.
class Reader : public QObject {
    Q_OBJECT

public:
    const Surroundings &surroundings() const { return m_surroundings; }
    /// Applies what can change at once.
    void setSurroundings(const Surroundings &surroundings);

    /// Whether the wanted surroundings are not yet those that the demo was started with.
    bool needsRestart() const;
    void restart() { Q_EMIT restartWanted(); }

    SpeechWindow &speech() { return m_speech; }

    /// Says that the demo was started with these surroundings.
    void startWith(const Surroundings &surroundings);

Q_SIGNALS:
    void restartWanted();

private:
    SpeechWindow m_speech;
    Surroundings m_started;
    Surroundings m_surroundings;
};

} // namespace demo
