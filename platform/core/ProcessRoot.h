// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <typeindex>

namespace velmora {

/// Owns every object that lives as long as the process: each is made on first use and all are
/// destroyed together, last made first, when the application object goes or a test asks for a
/// fresh process state. An object is made on the thread that asks first.
class ProcessRoot {
public:
    /// The process's one T, made now if there is none yet. Main thread.
    template<class T>
    static T &get() {
        return *share<T>();
    }

    /// The same for any other thread than the main one: keeps the object for as long as it is in
    /// use there, should the process state be dropped meanwhile.
    template<class T>
    static std::shared_ptr<T> share() {
        return std::static_pointer_cast<T>(
            find(typeid(T), []() -> std::shared_ptr<void> { return std::make_shared<T>(); }));
    }

    /// The process's one T, or null when none was made.
    template<class T>
    static T *existing() {
        return static_cast<T *>(find(typeid(T), nullptr).get());
    }

    /// True while there is an application object whose main loop can serve the framework.
    static bool isUsable();

    /// Has drop() called also when the process ends without its application object going, by
    /// exit(). To be said again after something was made that the objects' threads lean on: what
    /// was made last goes first.
    static void dropAtExit();

    /// Destroys everything; the next get() starts a fresh process state.
    static void drop();

private:
    using Factory = std::shared_ptr<void> (*)();
    static std::shared_ptr<void> find(std::type_index type, Factory factory);
};

} // namespace velmora
