// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <typeindex>

namespace velmora {

/// Owns the objects of which the process has one each. An object is constructed when it is first
/// asked for, on the thread that asks. All are destroyed together, in reverse order of
/// construction, when the application object is destroyed, or when a test drops them to start with
/// a fresh process state.
///
/// exit() destroys no application object, and when it has begun, widgets and most of Qt can't be
/// used any more. So then no object is destroyed; those that have a member function atExit() have
/// it called, in the same order, to end their threads. A worker may call exit() while the main
/// thread goes on, so atExit() may be called on any thread.
class ProcessRoot {
public:
    /// The process's one T, constructed now if there is none. Main thread.
    template<class T>
    static T &get() {
        return *share<T>();
    }

    /// The same for other threads than the main one. While the caller holds the pointer, the object
    /// is not destroyed, even when the process state is dropped meanwhile.
    template<class T>
    static std::shared_ptr<T> share() {
        return std::static_pointer_cast<T>(find(
            typeid(T), []() -> std::shared_ptr<void> { return std::make_shared<T>(); },
            exitHandlerOf<T>()));
    }

    /// The process's one T, or null when none has been constructed. Main thread.
    template<class T>
    static T *existing() {
        return static_cast<T *>(find(typeid(T), nullptr, nullptr).get());
    }

    /// True while there is an application object that is not being destroyed. Only then can posted
    /// work be run and can widgets be made. Any thread.
    static bool isUsable();

    /// True once exit() has begun. From then on the framework does nothing. Any thread.
    static bool hasEnded();

    /// True in a child process made by fork(), which has none of the framework's threads.
    static bool isForkedChild();

    /// Has exit() call the objects' atExit(). The first object of the process does this.
    ///
    /// exit() runs its handlers and destroys static objects in reverse order of their registration.
    /// So call this again after a library that a thread uses has registered its own handlers: the
    /// thread is then ended before.
    static void registerAtExit();

    /// Destroys all objects. The next get() constructs the first object of a fresh process state.
    static void drop();

private:
    using Factory = std::shared_ptr<void> (*)();
    using ExitHandler = void (*)(void *object);

    template<class T>
    static ExitHandler exitHandlerOf() {
        if constexpr (requires(T & object) { object.atExit(); })
            return [](void *object) { static_cast<T *>(object)->atExit(); };
        else
            return nullptr;
    }

    static std::shared_ptr<void> find(std::type_index type, Factory factory, ExitHandler atExit);
    static void exitBegins();
};

} // namespace velmora
