// SPDX-License-Identifier: Apache-2.0
// What the sanitizers are told of the libraries that are not ours. Without a sanitizer nobody
// calls these.

#include <cstdlib>

#ifdef __SANITIZE_ADDRESS__
namespace {
// Qt's own event loop: the frames of GLib's, whose leaks are left out, would be in every stack.
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

// These are not instrumented: their own locks and once-only guards are invisible to the sanitizer.
const char *__tsan_default_suppressions() {
    return "called_from_lib:libQt6Core.so\n"
           "called_from_lib:libQt6Network.so\n"
           "race:libQt6Core.so\n"
           "race:libQt6Gui.so\n" // scales large images on threads of its own
           "race:libQt6Network.so\n"
           "race:libglib-2.0.so\n"
           "race:libcpp-httplib.so\n"
           // The C library's own lock around the time zone is invisible as well.
           "race:tzset_internal\n"
           // Handed from one thread to another inside GStreamer.
           "race:GstBusReader::Tap\n";
}

#ifdef VELMORA_TEST_MEDIA_THREADS
__attribute__((visibility("default"))) const char *__tsan_default_options();

// The media framework's threads know only locks that the sanitizer does not see; what they do
// outside our own code is left out.
const char *__tsan_default_options() {
    return "ignore_noninstrumented_modules=1";
}
#endif
}
