// SPDX-License-Identifier: Apache-2.0
#include "UserActivity.h"

#include "MainQueue.h"

#include <QtGui/QDropEvent>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

#include <utility>

namespace velmora {

namespace {

// Not key(): the release of "!" may be that of "1", when the shift key was released before.
quint32 keyOf(const QKeyEvent &event) {
    return event.nativeScanCode() ? event.nativeScanCode() : quint32(event.key());
}

bool hasText(const QInputMethodEvent &event) {
    return !event.commitString().isEmpty() || !event.preeditString().isEmpty();
}

// A modal dialog that has the keyboard focus does not count: either it is registered for splash
// screens itself, or no registered window is key.
bool hasOtherModalDialog() {
    const QWindow *modal = QGuiApplication::modalWindow();
    return modal && modal != QGuiApplication::focusWindow();
}

// Whether something that current() tells may be over after this event.
bool mayEndActivity(QEvent::Type type) {
    switch (type) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::ApplicationStateChange:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
    case QEvent::Hide:
    case QEvent::PlatformSurface: // a popup was destroyed
    case QEvent::WindowUnblocked: // a modal dialog has ended
        return true;
    default:
        return false;
    }
}

} // namespace

UserActivity::~UserActivity() {
    stopWaiting();
}

void UserActivity::setObserving(bool observing) {
    QCoreApplication *application = QCoreApplication::instance();
    if (observing == m_isObserving || !application)
        return;
    m_isObserving = observing;
    if (observing) {
        application->installEventFilter(this);
        return;
    }
    application->removeEventFilter(this);
    m_keyboard.forgetHeldKeys();
    m_isDragging = false;
    stopWaiting();
}

QString UserActivity::current() const {
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        return QStringLiteral("a mouse button is held");
    if (m_isDragging)
        return QStringLiteral("something is dragged");
    if (QApplication::activePopupWidget())
        return QStringLiteral("a popup is open");
    if (hasOtherModalDialog())
        return QStringLiteral("a modal dialog is open");
    if (m_keyboard.remaining().count() > 0)
        return QStringLiteral("the user is typing");
    return {};
}

// Waiting.

void UserActivity::callWhenIdle(std::function<void()> callback) {
    m_callback = std::move(callback);
    // Once more, to be the first filter: another one may drop the release of a mouse button.
    if (m_isObserving)
        QCoreApplication::instance()->installEventFilter(this);
    checkLater();
}

void UserActivity::stopWaiting() {
    m_callback = nullptr;
    Timer::cancel(m_typingEnds);
}

// An event is filtered before it takes effect: a popup that is being hidden is still active.
void UserActivity::checkLater() {
    if (std::exchange(m_isCheckPosted, true))
        return;
    MainQueue::post(this, [this] {
        m_isCheckPosted = false;
        check();
    });
}

void UserActivity::check() {
    if (!isWaiting())
        return;
    Timer::cancel(m_typingEnds);
    if (current().isEmpty()) {
        const auto callback = std::exchange(m_callback, nullptr);
        callback();
        return;
    }
    const std::chrono::duration<double> typing = m_keyboard.remaining();
    if (typing.count() > 0)
        m_typingEnds =
            Timer::scheduled(typing.count(), Timer::Kind::OneShot, [this] { checkLater(); });
}

// Events.

bool UserActivity::eventFilter(QObject *watched, QEvent *event) {
    note(watched, event);
    if (isWaiting() && mayEndActivity(event->type()))
        checkLater();
    return false;
}

void UserActivity::note(const QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride: // the only event of a key press that triggers a shortcut
    case QEvent::KeyPress:
        // Key events that the host sends itself are not spontaneous.
        if (event->spontaneous())
            m_keyboard.pressed(keyOf(*static_cast<QKeyEvent *>(event)));
        break;
    case QEvent::KeyRelease:
        if (const auto *key = static_cast<QKeyEvent *>(event);
            key->spontaneous() && !key->isAutoRepeat())
            m_keyboard.released(keyOf(*key));
        break;
    case QEvent::InputMethod:
        if (hasText(*static_cast<QInputMethodEvent *>(event)))
            m_keyboard.textEntered();
        break;
    case QEvent::ApplicationStateChange:
        if (static_cast<QApplicationStateChangeEvent *>(event)->applicationState() !=
            Qt::ApplicationActive)
            m_keyboard.forgetHeldKeys();
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        // A window gets them first. The widgets in it get enter and leave events of their own.
        if (watched->isWindowType())
            noteDrag(event);
        break;
    default:
        break;
    }
}

void UserActivity::noteDrag(const QEvent *event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
        m_isDragging = true;
        m_isDragOwn = static_cast<const QDropEvent *>(event)->source();
        break;
    case QEvent::DragLeave:
        // The host's own drag goes on outside of its windows.
        m_isDragging = m_isDragging && m_isDragOwn;
        break;
    default:
        // A drop, or the mouse is back after a drag that ended outside, which is not told.
        m_isDragging = false;
        break;
    }
}

} // namespace velmora
