// SPDX-License-Identifier: Apache-2.0
// Suppressions for libraries that are not part of this project. A sanitizer calls these functions
// at start; without one they are unused.

extern "C" {

__attribute__((visibility("default"))) const char *__lsan_default_suppressions();
__attribute__((visibility("default"))) const char *__tsan_default_suppressions();

// Memory that these libraries keep until the process ends.
const char *__lsan_default_suppressions() {
    return "leak:libfontconfig.so\n"
           "leak:libQt6XcbQpa.so\n"
           "leak:libdbus-1.so\n"
           "leak:libsrt-gnutls.so\n"
           "leak:libglib-2.0.so\n";
}

// These libraries are built without instrumentation, so the sanitizer does not see their locks.
const char *__tsan_default_suppressions() {
    return "called_from_lib:libQt6Core.so\n"
           "called_from_lib:libQt6Network.so\n"
           "race:libQt6Core.so\n"
           "race:libQt6Network.so\n"
           "race:libglib-2.0.so\n"
           "race:libcpp-httplib.so\n"
           // Handed from one thread to another inside GStreamer.
           "race:GstVideoEngine::BusTap\n"
           // Runs after QThread::wait() for its thread, which the sanitizer does not see.
           "race:UrlSessionWorker::~UrlSessionWorker\n";
}

#ifdef VELMORA_TEST_MEDIA_THREADS
__attribute__((visibility("default"))) const char *__tsan_default_options();

// GStreamer's threads synchronise with locks that the sanitizer does not see, so only code of this
// project is checked.
const char *__tsan_default_options() {
    return "ignore_noninstrumented_modules=1";
}
#endif
}
