// SPDX-License-Identifier: Apache-2.0
// What the sanitizers are told of the libraries that are not ours. Without a sanitizer nobody
// calls these.

#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
namespace {
// Qt's own event loop instead of GLib's, whose frames would otherwise be in every stack: what is
// left out for GLib would hide our own faults.
[[maybe_unused]] const int s_withoutGlib = setenv("QT_NO_GLIB", "1", 1);
} // namespace
#endif

extern "C" {

__attribute__((visibility("default"))) const char *__lsan_default_suppressions();
__attribute__((visibility("default"))) const char *__tsan_default_suppressions();

// What the font, desktop and media libraries keep until the process ends.
const char *__lsan_default_suppressions() {
    return "leak:libfontconfig.so\n"
           "leak:libQt6XcbQpa.so\n"
           "leak:libdbus-1.so\n"
           "leak:libsrt-gnutls.so\n"
           "leak:libglib-2.0.so\n";
}

// The libraries are not instrumented: the sanitizer sees the memory that they allocate, free and
// copy, but not the locks and reference counts that guard it. No entry may match a function that
// calls ours, such as those of the event loop, because it would hide our own races there
// (SanitizerCanaryTest).
const char *__tsan_default_suppressions() {
    // Calls of malloc(), free(), memcpy() and the like that one of these makes itself are not
    // looked at. Our own functions still are when it calls them.
    return "called_from_lib:libQt6Core.so\n"
           "called_from_lib:libQt6Gui.so\n"
           "called_from_lib:libQt6Network.so\n"
           "called_from_lib:libQt6DBus.so\n"
           "called_from_lib:libdbus-1.so\n"
           "called_from_lib:libcpp-httplib.so\n"
           // A posted event is read by another thread than it was made by. The lock of Qt's queue
           // of posted events lies between the two.
           "race_top:QEvent::type\n"
           // Qt's thread for D-Bus leaves this object before the main thread destroys it.
           "race:SettingsPortal::metaObject\n"
           // The C library's own lock around the time zone.
           "race:tzset_internal\n"
           // GStreamer and D-Bus take some locks of their own in either order.
           "deadlock:libgst\n"
           "deadlock:libdbus-1\n";
}

#ifdef VELMORA_TEST_FOREIGN_THREADS
__attribute__((visibility("default"))) const char *__tsan_default_options();

// As called_from_lib above for all libraries, where too many to name have threads: GStreamer and
// its plugins, the X11 client library, OpenGL. It includes our own calls of free() and memcpy(),
// which the other test programs check. And the process ends without a pause: a video's thread that
// exit() no longer waits for would load GStreamer meanwhile, which fails then.
const char *__tsan_default_options() {
    return "ignore_interceptors_accesses=1 atexit_sleep_ms=0";
}
#endif
}
