// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtWidgets/QWidget>

namespace velmora {

class Fade;

/// The fades of a process, and which of their views lie behind others. Main thread only.
class RunningFades {
public:
    static void add(Fade *fade);
    static void remove(Fade *fade);

    /// Tells each fade of a window whether its view may rest behind one that fades in.
    static void updateCovered(const QWidget *window);

private:
    static bool isCovered(const Fade *fade, const QList<Fade *> &others);

    // A list, because searching a window for its fades would take longer the more objects the host
    // has in it.
    QList<Fade *> m_fades;
};

} // namespace velmora
