// SPDX-License-Identifier: Apache-2.0
#include "MainQueue.h"

#include "ProcessRoot.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QThread>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace velmora {

namespace {

class MainQueueReceiver;

// The posted work, on its way from any thread to the main thread. A std::mutex guards it, because
// the thread sanitizer does not understand the locks inside Qt. It is never destroyed, because a
// worker may still be posting while the process state is dropped.
struct Handover {
    std::mutex mutex;
    std::deque<std::function<void()>> pending;
    MainQueueReceiver *receiver = nullptr;
    std::condition_variable markHandled;
    int marksHandled = 0;
};

Handover &handover() {
    static Handover &instance = *new Handover;
    return instance;
}

// Posted after the events that waitForPendingEvents() waits for.
constexpr auto Mark = QEvent::Type(QEvent::User + 1);

// Receives one event on the main thread for each piece of work.
class MainQueueReceiver : public QObject {
public:
    MainQueueReceiver() {
        moveToThread(QCoreApplication::instance()->thread());
        const std::lock_guard lock(handover().mutex);
        handover().receiver = this;
    }

    ~MainQueueReceiver() override {
        std::deque<std::function<void()>> dropped;
        const std::lock_guard lock(handover().mutex);
        handover().receiver = nullptr;
        dropped.swap(handover().pending);
    }

    bool event(QEvent *event) override {
        if (event->type() != QEvent::User && event->type() != Mark)
            return QObject::event(event);
        std::function<void()> work;
        {
            const std::lock_guard lock(handover().mutex);
            if (event->type() == Mark) {
                ++handover().marksHandled;
                handover().markHandled.notify_all();
                return true;
            }
            if (handover().pending.empty() || ProcessRoot::hasEnded())
                return true;
            work = std::move(handover().pending.front());
            handover().pending.pop_front();
        }
        work();
        return true;
    }
};

// Not in ProcessRoot: the main thread stays the main thread when the process state is dropped.
std::atomic<std::thread::id> &mainThread() {
    static std::atomic<std::thread::id> thread = std::this_thread::get_id();
    return thread;
}

// Calls mainThread() while the library is loaded, so that the first caller is never a worker.
[[maybe_unused]] const auto &s_loadingThread = mainThread();

} // namespace

void MainQueue::post(std::function<void()> work) {
    if (!ProcessRoot::isUsable())
        return;
    ProcessRoot::get<MainQueueReceiver>();
    const std::lock_guard lock(handover().mutex);
    // Another thread may have dropped the process state since the call above.
    if (!handover().receiver)
        return;
    handover().pending.push_back(std::move(work));
    QCoreApplication::postEvent(handover().receiver, new QEvent(QEvent::User));
}

void MainQueue::post(QObject *context, std::function<void()> work) {
    post([context = QPointer<QObject>(context), work = std::move(work)] {
        if (context)
            work();
    });
}

void MainQueue::waitForPendingEvents(std::chrono::milliseconds longest) {
    Handover &queue = handover();
    std::unique_lock lock(queue.mutex);
    if (!queue.receiver)
        return;
    const int before = queue.marksHandled;
    QCoreApplication::postEvent(queue.receiver, new QEvent(Mark), Qt::LowEventPriority);
    queue.markHandled.wait_for(lock, longest,
                               [&queue, before] { return queue.marksHandled != before; });
}

bool MainQueue::isMainThread() {
    if (const QCoreApplication *app = QCoreApplication::instance()) {
        if (QThread::currentThread() != app->thread())
            return false;
        mainThread() = std::this_thread::get_id();
        return true;
    }
    return mainThread() == std::this_thread::get_id();
}

void MainQueue::runOrPost(std::function<void()> work) {
    if (isMainThread())
        work();
    else
        post(std::move(work));
}

} // namespace velmora
