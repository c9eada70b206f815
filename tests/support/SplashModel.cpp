#include "tests/support/SplashModel.h"

#include <algorithm>
#include <utility>

namespace velmora::test {

SplashModel::Handle SplashModel::start(qint64 after, qint64 period, std::function<void()> fired) {
    m_clocks.push_back(std::make_shared<Clock>(
        Clock{m_now + std::max<qint64>(after, 0), period, std::move(fired)}));
    return m_clocks.back();
}

void SplashModel::cancel(Handle &clock) {
    m_clocks.remove(clock.lock());
    clock.reset();
}

void SplashModel::runPosted() {
    while (!m_posted.empty()) {
        const auto step = m_posted.front();
        m_posted.erase(m_posted.begin());
        step();
    }
}

void SplashModel::advance(qint64 milliseconds) {
    const qint64 target = m_now + milliseconds;
    for (;;) {
        const auto next = std::min_element(m_clocks.begin(), m_clocks.end(),
                                           [](auto &a, auto &b) { return a->at < b->at; });
        if (next == m_clocks.end() || (*next)->at > target)
            break;
        const std::shared_ptr<Clock> clock = *next;
        m_now = std::max(m_now, clock->at);
        if (clock->period > 0)
            clock->at += clock->period;
        else
            m_clocks.erase(next);
        clock->fired();
        runPosted();
    }
    m_now = target;
}

bool SplashModel::isAdded(int window) const {
    return std::find(windows.begin(), windows.end(), window) != windows.end();
}

void SplashModel::show() {
    if (adsOff || isShow || !isReady)
        return;
    if (active == None)
        needShow = true;
    else
        begin(Load);
}

void SplashModel::forceShow(bool withoutSplash) {
    if (adsOff)
        return;
    without = without || withoutSplash;
    cancel(m_first);
    cancel(m_prepare);
    begin(without ? 0 : Load);
}

void SplashModel::begin(qint64 load) {
    if (adsOff || isShow || !focus || windows.empty())
        return;
    ++count;
    needShow = isReady = m_buttonIsDue = false;
    isShow = true;
    m_since = m_now;
    duration = passed = 0;
    m_video = start(load, 0, [this] { startVideo(); });
    m_tick = start(1000, 1000, [this] { tick(); });
    state = 0;
    heard << QStringLiteral("splashcreenwillshow") << QStringLiteral("splashcreendidshow");
    if (count >= 2)
        heard << QStringLiteral("splashcreensecondstart");
}

void SplashModel::tick() {
    if (!isShow && windows.empty() && adsOff)
        cancel(m_tick);
    ++passed;
}

void SplashModel::startVideo() {
    cancel(m_video);
    state = 1;
    m_video = start(Video, 0, [this] { showButton(); });
    heard << QStringLiteral("videostart");
}

void SplashModel::showButton() {
    state = 2;
    m_buttonIsDue = false;
    cancel(m_video);
}

void SplashModel::videoEnded() {
    if (!isShow)
        return;
    state = 3;
    heard << QStringLiteral("videostop");
}

void SplashModel::close() {
    without = false;
    state = -1;
    hide();
    heard << QStringLiteral("splashscreendidclose");
}

void SplashModel::hide() {
    isShow = needShow = m_buttonIsDue = false;
    cancel(m_tick);
    m_prepare = start(120'000, 0, [this] { openGate(); });
}

void SplashModel::openGate() {
    cancel(m_prepare);
    isReady = true;
}

void SplashModel::refreshWaitAgain() {
    if (adsOff)
        return;
    cancel(m_prepare);
    isReady = false;
    m_prepare = start(120'000, 0, [this] { openGate(); });
}

void SplashModel::pause() {
    needsResume = true;
    duration += m_now - m_since;
    if (isShow) {
        m_buttonIsDue = m_buttonIsDue || (state == 3 && !m_video.expired());
        cancel(m_video);
        cancel(m_tick);
        cancel(m_resumeTick);
    }
    active = None;
}

void SplashModel::resume() {
    needsResume = false;
    if (adsOff)
        return;
    if (isShow) {
        if (state < 2) {
            m_since = m_now;
            cancel(m_resumeTick);
            const qint64 rest = (1000 - duration % 1000) % 1000;
            m_resumeTick = start(rest, 0, [this] {
                tick();
                m_tick = start(1000, 1000, [this] { tick(); });
            });
        }
        if (state == 0)
            m_video = start(Load - duration, 0, [this] { startVideo(); });
        else if (state == 1 || std::exchange(m_buttonIsDue, false))
            m_video = start((without ? 0 : Load) + Video - duration, 0, [this] { showButton(); });
    }
    if (needShow)
        begin(Load);
}

void SplashModel::add(int window) {
    if (adsOff || isAdded(window))
        return;
    if (windows.empty())
        m_first = start(30'000, 0, [this] { openGate(); });
    windows.push_back(window);
    m_observed.insert(window);
    if (key == window)
        gotKey(window);
    runPosted();
}

void SplashModel::remove(int window) {
    std::erase(windows, window);
    m_observed.erase(window);
}

void SplashModel::removeAll() {
    isShow = false;
    windows.clear();
}

void SplashModel::destroy(int window) {
    if (key == window) {
        key = None;
        if (m_observed.contains(window))
            lostKey();
    }
    remove(window);
    runPosted();
}

void SplashModel::activate(int window) {
    if (key == window)
        return;
    const int before = std::exchange(key, window);
    if (m_observed.contains(before))
        lostKey();
    if (m_observed.contains(window))
        gotKey(window);
    runPosted();
}

void SplashModel::lostKey() {
    focus = false;
    if (adsOff || !isShow)
        return;
    m_posted.push_back([this] {
        if (!focus)
            pause();
    });
}

void SplashModel::gotKey(int window) {
    focus = true;
    active = isAdded(window) ? window : None;
    m_posted.push_back([this] {
        if (needsResume)
            resume();
        if (needShow)
            show();
    });
}

} // namespace velmora::test
