#pragma once

#include <QtCore/QStringList>

#include <functional>
#include <list>
#include <memory>
#include <set>
#include <vector>

namespace velmora::test {

/// What a host should see of the splash screens, told once more in the simplest way: windows are
/// numbers, time is milliseconds, and nothing is drawn.
class SplashModel {
public:
    // What the host does.
    void show();
    void forceShow(bool withoutSplash);
    void refreshWaitAgain();
    void add(int window);
    void remove(int window);
    void removeAll();
    void destroy(int window);
    void activate(int window);
    void close();
    void videoEnded();
    void setAdsOff(bool off) { adsOff = off; }
    void advance(qint64 milliseconds);

    // What is seen.
    static constexpr int None = -1;
    bool adsOff = false;
    bool isShow = false;
    bool isReady = false;
    bool needShow = false;
    bool needsResume = false;
    bool focus = false;
    bool without = false;
    int state = 0;
    int count = 0;
    qint64 passed = 0;
    qint64 duration = 0;
    std::vector<int> windows;
    int active = None;
    int key = None;
    QStringList heard;

private:
    struct Clock {
        qint64 at;
        qint64 period;
        std::function<void()> fired;
    };
    using Handle = std::weak_ptr<Clock>;

    Handle start(qint64 after, qint64 period, std::function<void()> fired);
    void cancel(Handle &clock);
    void runPosted();
    bool isAdded(int window) const;
    void begin(qint64 load);
    void openGate();
    void tick();
    void pause();
    void resume();
    void hide();
    void startVideo();
    void showButton();
    void lostKey();
    void gotKey(int window);

    static constexpr qint64 Load = 5000;
    static constexpr qint64 Video = 5000;
    qint64 m_now = 0;
    qint64 m_since = 0;
    bool m_buttonIsDue = false;
    std::set<int> m_observed;
    std::list<std::shared_ptr<Clock>> m_clocks;
    Handle m_first, m_prepare, m_tick, m_resumeTick, m_video;
    std::vector<std::function<void()>> m_posted;
};

} // namespace velmora::test
