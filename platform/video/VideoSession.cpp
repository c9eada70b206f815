// SPDX-License-Identifier: Apache-2.0
#include "VideoSession.h"

#include "BackgroundThread.h"
#include "Log.h"
#include "ProcessRoot.h"
#include "VideoEngines.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QFileInfo>

#include <chrono>
#include <cstdlib>
#include <utility>
#include <vector>

namespace velmora {

namespace {

using namespace std::chrono_literals;

// How long exit() waits for the threads.
constexpr auto LongestEnding = 2s;

// The sessions whose threads are running. A thread may be loading a library, which must not happen
// while exit() destroys the static objects of all libraries. So exit() ends the threads first.
class RunningSessions {
public:
    static RunningSessions &instance() {
        // Not in ProcessRoot, and never destroyed: a thread that does not end in time still calls
        // leave().
        static auto *sessions = new RunningSessions;
        return *sessions;
    }

    void enter(const std::shared_ptr<VideoSession> &session) {
        const std::lock_guard lock(m_mutex);
        m_sessions.push_back(session);
    }

    void leave(const std::shared_ptr<VideoSession> &session) {
        {
            const std::lock_guard lock(m_mutex);
            std::erase(m_sessions, session);
        }
        m_left.notify_all();
    }

private:
    RunningSessions() {
        std::atexit([] {
            if (!ProcessRoot::isForkedChild())
                instance().end();
        });
        // The framework is to stop before, so that it begins no further session.
        ProcessRoot::registerAtExit();
    }

    void end() {
        std::unique_lock lock(m_mutex);
        for (const auto &session : m_sessions)
            session->close();
        m_left.wait_for(lock, LongestEnding, [this] { return m_sessions.empty(); });
    }

    std::mutex m_mutex;
    std::condition_variable m_left;
    std::vector<std::shared_ptr<VideoSession>> m_sessions;
};

} // namespace

VideoSession::VideoSession(QObject *receiver, VideoSource source)
    : m_source(std::move(source)), m_receiver(receiver), m_place(m_source.place) {}

void VideoSession::warmUp() {
    const auto session = std::make_shared<VideoSession>(nullptr, VideoSource{});
    session->m_warmsUpOnly = true;
    session->m_closed = true; // no events are sent, as there is no receiver
    session->begin();
}

void VideoSession::begin() {
    QString error;
    RunningSessions::instance().enter(shared_from_this());
    const auto work = [self = shared_from_this()] {
        self->serve();
        RunningSessions::instance().leave(self);
    };
    if (startBackgroundThread("velmora-video", AtExit::Ignores, work, &error))
        return;
    RunningSessions::instance().leave(shared_from_this());
    failed(error, false);
}

void VideoSession::run(Command command) {
    {
        const std::lock_guard lock(m_mutex);
        m_commands.push_back(std::move(command));
    }
    m_wake.notify_one();
}

void VideoSession::seek(double seconds) {
    {
        const std::lock_guard lock(m_mutex);
        ++m_seeksUnderWay;
        m_update.ended = false;
    }
    run([this, seconds](VideoEngine &engine) {
        engine.seek(seconds);
        const std::lock_guard lock(m_mutex);
        --m_seeksUnderWay;
    });
}

void VideoSession::setPlace(const QSize &place) {
    {
        const std::lock_guard lock(m_mutex);
        m_place = place;
    }
    run([place](VideoEngine &engine) { engine.setPlace(place); });
}

void VideoSession::close() {
    std::deque<Command> dropped;
    VideoUpdate untold;
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
        m_receiver = nullptr;
        dropped.swap(m_commands);
        std::swap(untold, m_update);
    }
    m_wake.notify_one();
}

VideoUpdate VideoSession::takeUpdate() {
    const std::lock_guard lock(m_mutex);
    m_updatePosted = false;
    return std::exchange(m_update, {});
}

VideoProgress VideoSession::progress() const {
    const std::lock_guard lock(m_mutex);
    return m_progress;
}

// On the session's thread from here.

void VideoSession::serve() {
    if (m_warmsUpOnly)
        return VideoEngines::warmUp(this);
    QString error = faultOfSource();
    std::unique_ptr<VideoEngine> engine;
    if (error.isEmpty()) {
        {
            const std::lock_guard lock(m_mutex);
            if (m_closed)
                return;
        }
        engine = VideoEngines::create(this, &error);
    }
    if (!engine)
        return failed(error, false);
    engine->load(m_source);
    runCommands(*engine);
}

void VideoSession::runCommands(VideoEngine &engine) {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_closed || !m_commands.empty(); });
        if (m_closed)
            return;
        const Command command = std::move(m_commands.front());
        m_commands.pop_front();
        lock.unlock();
        command(engine);
        lock.lock();
    }
}

// Reading anything but a regular file could block the thread for ever.
QString VideoSession::faultOfSource() const {
    if (m_source.path.isEmpty())
        return QStringLiteral("it is not a local file");
    const QFileInfo file(m_source.path);
    if (!file.exists())
        return QStringLiteral("there is no such file");
    if (!file.isFile())
        return QStringLiteral("it is not a file");
    return file.size() > 0 ? QString() : QStringLiteral("the file is empty");
}

// On any thread from here.

void VideoSession::change(const std::function<void(VideoUpdate &)> &change) {
    const std::lock_guard lock(m_mutex);
    if (m_closed)
        return;
    change(m_update);
    // Under the lock, because close() resets the receiver before the receiver is destroyed. Not
    // MainQueue::post(), which only the main thread may give an object that can be destroyed.
    if (!std::exchange(m_updatePosted, true))
        QCoreApplication::postEvent(m_receiver, new QEvent(QEvent::User));
}

void VideoSession::prepared() {
    // A command, because the engine must be used on its own thread.
    run([this](VideoEngine &engine) {
        engine.opened();
        const double duration = engine.durationSeconds();
        change([duration](VideoUpdate &update) { update.duration = duration; });
    });
}

void VideoSession::frame(const QImage &picture) {
    QSize place;
    {
        const std::lock_guard lock(m_mutex);
        if (m_closed)
            return;
        place = m_place;
    }
    // The replaced picture is destroyed without the lock, because the engine then frees its buffer.
    QImage latest = m_enlarger.enlarged(picture, place);
    change([&latest](VideoUpdate &update) { update.frame.swap(latest); });
}

void VideoSession::moved(double position, double quietFor) {
    const std::lock_guard lock(m_mutex);
    ++m_progress.moves;
    m_progress.position = position;
    m_progress.quietFor = quietFor;
}

void VideoSession::ended() {
    change([this](VideoUpdate &update) { update.ended = m_seeksUnderWay == 0; });
}

void VideoSession::failed(const QString &reason, bool soundIsAtFault) {
    change([&](VideoUpdate &update) {
        if (!update.failure.isEmpty())
            return;
        update.failure = reason;
        update.soundIsAtFault = soundIsAtFault;
    });
}

void VideoSession::remark(const QString &text) {
    Log::write(QStringLiteral("video %1: %2").arg(m_source.path, text));
}

} // namespace velmora
