// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <typeindex>

namespace velmora {

/// Owns the objects of which the process has one each. An object is constructed when it is first
/// asked for, on the thread that asks. All are destroyed together, in reverse order of
/// construction, when the application object is destroyed, or when a test drops them to start with
/// a fresh process state.
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
        return std::static_pointer_cast<T>(
            find(typeid(T), []() -> std::shared_ptr<void> { return std::make_shared<T>(); }));
    }

    /// The process's one T, or null when none has been constructed. Main thread.
    template<class T>
    static T *existing() {
        return static_cast<T *>(find(typeid(T), nullptr).get());
    }

    /// True while there is an application object that is not being destroyed. Only then can posted
    /// work be run and can widgets be made. Any thread.
    static bool isUsable();

    /// Registers drop() to be called by exit(), which does not destroy an application object.
    ///
    /// exit() runs its handlers and destroys static objects in reverse order. So call this again
    /// after constructing static objects that threads of the process state use: those threads are
    /// then ended before the static objects are destroyed.
    static void dropAtExit();

    /// Destroys all objects. The next get() constructs the first object of a fresh process state.
    static void drop();

private:
    using Factory = std::shared_ptr<void> (*)();
    static std::shared_ptr<void> find(std::type_index type, Factory factory);
};

} // namespace velmora
