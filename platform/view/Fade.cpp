// SPDX-License-Identifier: Apache-2.0
#include "Fade.h"

#include "Animator.h"
#include "FadeCurtain.h"
#include "FadeEffect.h"
#include "ProcessRoot.h"
#include "RunningFades.h"

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

// The opacity that a fade reaches in its first sixtieth of a second. It starts there, because
// nothing of it would be seen before.
constexpr double FirstStep = 1 / (60 * Animator::Duration);

} // namespace

Fade *Fade::of(const QWidget *view) {
    return view->findChild<Fade *>(QString(), Qt::FindDirectChildrenOnly);
}

Fade::Fade(QWidget *view)
    : QObject(view), m_view(view), m_opacity(view->isHidden() ? 0 : 1), m_hidden(view->isHidden()) {
    // Qt would not paint the view, nor what is behind it, where a part of it says that it covers
    // all of that: a video does.
    const auto parts = view->findChildren<QWidget *>();
    for (QWidget *part : parts) {
        if (!part->testAttribute(Qt::WA_OpaquePaintEvent))
            continue;
        part->setAttribute(Qt::WA_OpaquePaintEvent, false);
        m_opaque.append(part);
    }
    RunningFades::add(this);
}

Fade::~Fade() {
    RunningFades::remove(this);
    if (m_timer)
        m_timer->invalidate();
}

void Fade::run(bool hidden) {
    // Qt can't draw an effect inside another one.
    const auto inner = m_view->findChildren<Fade *>();
    for (Fade *fade : inner) {
        if (fade != this)
            fade->finish(fade->isTowardsHidden());
    }
    m_hidden = hidden;
    m_view->setAttribute(Qt::WA_TransparentForMouseEvents, hidden);
    m_lastFrame = TimeSource::current().now();
    const bool isRunning = m_timer && m_timer->isValid();
    if (!isRunning)
        setOpacity(hidden ? 1 - FirstStep : FirstStep);
    m_view->show();
    RunningFades::updateCovered(m_view->window());
    if (isRunning)
        return;
    m_timer = Timer::scheduled(0, Timer::Kind::Repeating, [this] { frame(); });
    m_timer->setFiresDuringTracking();
}

void Fade::finish(bool hidden) {
    m_hidden = hidden;
    end();
}

void Fade::redraw() {
    if (m_curtain) {
        for (QImage &image : m_curtain->takeImages())
            m_images.put(std::move(image));
        delete m_curtain;
        setOpacity(m_opacity); // with an effect again
    } else if (auto *effect = qobject_cast<FadeEffect *>(m_view->graphicsEffect())) {
        effect->redraw();
    }
}

void Fade::frame() {
    const auto now = TimeSource::current().now();
    const double passed = std::chrono::duration<double>(now - m_lastFrame).count();
    m_lastFrame = now;
    const double step = passed / Animator::Duration;
    setOpacity(std::clamp(m_opacity + (m_hidden ? -step : step), 0.0, 1.0));
    m_hasMoved = true;
    if (!m_wasDrawn && isDrawn())
        viewWasDrawn();
    const bool isDone = m_hidden ? m_opacity <= 0 : m_opacity >= 1;
    // Nobody sees the rest of the fade when the view is no longer on screen.
    if (isDone || !m_view->isVisible())
        end();
}

bool Fade::isDrawn() const {
    const auto *effect = qobject_cast<FadeEffect *>(m_view->graphicsEffect());
    return m_curtain || (effect && !effect->picture().isNull());
}

// Qt makes much of what it draws with when it first draws something of a kind. exit() must not
// destroy that before the framework has stopped drawing, so the framework registers once more.
void Fade::viewWasDrawn() {
    m_wasDrawn = true;
    // Each registration takes memory, and after these fades a splash screen has been shown too.
    static int registrationsLeft = 8;
    if (registrationsLeft == 0)
        return;
    --registrationsLeft;
    ProcessRoot::registerAtExit();
}

void Fade::setOpacity(double opacity) {
    m_opacity = opacity;
    if (m_isCovered)
        return;
    if (m_curtain) {
        m_curtain->setOpacity(opacity);
        return;
    }
    auto *effect = qobject_cast<FadeEffect *>(m_view->graphicsEffect());
    if (!effect) {
        effect = new FadeEffect(m_view, m_images);
        if (!m_hasMoved)
            effect->waitForImages(m_hidden);
        m_view->setGraphicsEffect(effect);
    } else if (!effect->backdrop().isNull() && effect->coversWindow()) {
        // Over a small view, what is behind it could be seen to stand still: a video, for example.
        drawCurtain(*effect);
        return;
    }
    effect->setOpacity(opacity);
}

void Fade::drawCurtain(const FadeEffect &effect) {
    m_curtain =
        new FadeCurtain(m_view, effect.picture(), effect.backdrop(), [this] { finish(m_hidden); });
    m_curtain->setOpacity(m_opacity);
    m_view->setGraphicsEffect(nullptr); // destroys the effect
}

void Fade::setCovered(bool covered) {
    if (covered == m_isCovered)
        return;
    m_isCovered = covered;
    if (covered) {
        m_view->setGraphicsEffect(nullptr);
        delete m_curtain;
    } else {
        setOpacity(m_hidden ? 1 - FirstStep : 1); // all of it has been seen so far
    }
}

void Fade::end() {
    if (m_timer)
        m_timer->invalidate();
    RunningFades::remove(this);
    if (m_hidden)
        RunningFades::updateCovered(m_view->window());
    // Without a parent, because the host has removed it meanwhile, a shown view would be a window.
    m_view->setVisible(!m_hidden && m_view->parentWidget());
    m_view->setGraphicsEffect(nullptr);
    delete m_curtain;
    for (const QPointer<QWidget> &part : std::as_const(m_opaque)) {
        if (part)
            part->setAttribute(Qt::WA_OpaquePaintEvent);
    }
    m_view->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    if (m_hidden && m_removes) {
        m_view->setParent(nullptr);
        m_view->deleteLater();
    }
    deleteLater();
    setParent(nullptr);
}

} // namespace velmora
