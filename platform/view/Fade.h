// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"
#include <Velmora/Timer.h>

#include <QtCore/QObject>
#include <QtWidgets/QWidget>

namespace velmora {

/// The fade of one view towards shown or hidden, owned by the view.
class Fade : public QObject {
    Q_OBJECT

public:
    /// The view's fade, or null when it has none.
    static Fade *of(const QWidget *view);

    explicit Fade(QWidget *view);
    ~Fade() override;

    bool isTowardsHidden() const { return m_hidden; }

    /// Turns the fade towards a state, from whatever opacity it has reached.
    void run(bool hidden);
    /// Reaches the state now.
    void finish(bool hidden);
    /// Destroys the view when it has become hidden.
    void removeViewAtEnd() { m_removes = true; }

private:
    void frame();
    void setOpacity(double opacity);
    void end();

    QWidget *m_view;
    TimerPtr m_timer;
    TimeSource::Duration m_lastFrame{0};
    double m_opacity;
    bool m_hidden;
    bool m_removes = false;
};

} // namespace velmora
