// SPDX-License-Identifier: Apache-2.0
#include "MainQueue.h"

#include "ProcessRoot.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QThread>

#include <deque>
#include <mutex>

namespace velmora {

namespace {

class MainQueueReceiver;

// What threads hand over, under a standard mutex, which the thread sanitizer understands, unlike
// the one inside Qt. Never destroyed: a worker may be posting while the process state goes.
struct Handover {
    std::mutex mutex;
    std::deque<std::function<void()>> pending;
    MainQueueReceiver *receiver = nullptr;
};

Handover &handover() {
    static Handover &instance = *new Handover;
    return instance;
}

// Receives one event a posted piece of work, on the main thread.
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
        if (event->type() != QEvent::User)
            return QObject::event(event);
        std::function<void()> work;
        {
            const std::lock_guard lock(handover().mutex);
            if (handover().pending.empty())
                return true;
            work = std::move(handover().pending.front());
            handover().pending.pop_front();
        }
        work();
        return true;
    }
};

} // namespace

void MainQueue::post(std::function<void()> work) {
    if (!ProcessRoot::isUsable())
        return;
    ProcessRoot::get<MainQueueReceiver>();
    const std::lock_guard lock(handover().mutex);
    // It may have gone again since.
    if (!handover().receiver)
        return;
    handover().pending.push_back(std::move(work));
    QCoreApplication::postEvent(handover().receiver, new QEvent(QEvent::User));
}

bool MainQueue::isMainThread() {
    const QCoreApplication *app = QCoreApplication::instance();
    return !app || QThread::currentThread() == app->thread();
}

void MainQueue::runOrPost(std::function<void()> work) {
    if (isMainThread())
        work();
    else
        post(std::move(work));
}

} // namespace velmora
