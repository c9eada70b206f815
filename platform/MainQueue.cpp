#include "platform/MainQueue.h"

#include "platform/ProcessRoot.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QThread>

#include <deque>
#include <mutex>

namespace velmora {

namespace {

// Receives one event a posted piece of work. The pieces themselves cross threads under a
// standard mutex, which the thread sanitizer understands, unlike the one inside Qt.
class MainQueueReceiver : public QObject {
public:
    MainQueueReceiver() { moveToThread(QCoreApplication::instance()->thread()); }

    void add(std::function<void()> work) {
        {
            const std::lock_guard lock(m_mutex);
            m_pending.push_back(std::move(work));
        }
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    bool event(QEvent *event) override {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        std::function<void()> work;
        {
            const std::lock_guard lock(m_mutex);
            if (m_pending.empty())
                return true;
            work = std::move(m_pending.front());
            m_pending.pop_front();
        }
        work();
        return true;
    }

private:
    std::mutex m_mutex;
    std::deque<std::function<void()>> m_pending;
};

} // namespace

void MainQueue::post(std::function<void()> work) {
    if (ProcessRoot::isUsable())
        ProcessRoot::get<MainQueueReceiver>().add(std::move(work));
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
