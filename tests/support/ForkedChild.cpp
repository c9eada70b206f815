// SPDX-License-Identifier: Apache-2.0
// QProcess under the thread sanitizer.

#if defined(__SANITIZE_THREAD__) && defined(__linux__)

#include <dlfcn.h>
#include <sched.h>
#include <sys/types.h>

#include <cstdarg>

// Replaces clone() of the C library, by which QProcess starts a child that shares the memory of its
// parent until it calls exec(). The sanitizer takes that child for one with a memory of its own: in
// it, it stops recording locks and refuses new threads, but what it writes down of that holds for
// the parent's thread as well. From then on that thread's locks are ignored, so that everything
// they guard is reported as a race. This gives the child a copy of the memory, as fork() does.
extern "C" __attribute__((visibility("default"))) int clone(int (*child)(void *), void *stack,
                                                            int flags, void *argument, ...) {
    va_list rest;
    va_start(rest, argument);
    auto *const parentId = va_arg(rest, pid_t *);
    auto *const threadStorage = va_arg(rest, void *);
    auto *const childId = va_arg(rest, pid_t *);
    va_end(rest);
    static const auto next = reinterpret_cast<decltype(&clone)>(dlsym(RTLD_NEXT, "clone"));
    return next(child, stack, flags & ~CLONE_VM, argument, parentId, threadStorage, childId);
}

#endif
