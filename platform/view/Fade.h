// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "FadeImages.h"
#include "TimeSource.h"
#include <Velmora/Timer.h>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

class FadeCurtain;
class FadeEffect;

/// One fade of a view, in or out. A view that covers its window stays as it was when the fade
/// began, and so does what is behind it. A view that is to fade out behind one that fades in over
/// all of it, stays as it is until then. The view owns it; it destroys itself at its end. Main
/// thread only.
class Fade : public QObject {
    Q_OBJECT

public:
    /// The view's fade, or null when it has none.
    static Fade *of(const QWidget *view);

    explicit Fade(QWidget *view);
    ~Fade() override;

    QWidget *view() const { return m_view; }
    bool isTowardsHidden() const { return m_hidden; }

    /// Starts the fade towards a state, or turns it round at the opacity that it has reached.
    void run(bool hidden);
    /// Ends the fade at once, in the given state.
    void finish(bool hidden);
    /// Draws the view as it is now.
    void redraw();
    /// Whether the view may stay as it is behind another one. One that was seen half faded would
    /// jump.
    bool mayBeCovered() const { return m_hidden && (m_isCovered || !m_hasMoved); }
    /// A covered view is not drawn fading.
    void setCovered(bool covered);
    /// Lets the fade destroy the view when the view has become hidden.
    void removeViewAtEnd() { m_removes = true; }

private:
    void frame();
    bool isDrawn() const;
    void viewWasDrawn();
    void setOpacity(double opacity);
    void drawCurtain(const FadeEffect &effect);
    void end();

    QWidget *m_view;
    FadeImages m_images;
    QList<QPointer<QWidget>> m_opaque;
    QPointer<FadeCurtain> m_curtain;
    TimerPtr m_timer;
    TimeSource::Duration m_lastFrame{0};
    double m_opacity;
    bool m_hidden;
    bool m_removes = false;
    bool m_hasMoved = false; // a frame has followed the first step
    bool m_isCovered = false;
    bool m_wasDrawn = false;
};

} // namespace velmora
