// SPDX-License-Identifier: Apache-2.0
#include "GstSoundSink.h"

#include "BackgroundThread.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace velmora {

namespace {

using namespace std::chrono_literals;

// A sound server answers much faster. The first picture of a video waits as long.
constexpr auto LongestOpening = 700ms;

// The sinks to try, in this order. Not autoaudiosink, which tries all sinks: some of them are no
// sound devices, and some write to the host's standard error when they find no server.
constexpr const char *Candidates[] = {"pulsesink", "alsasink"};

GstPointer<GstElement> openFirst() {
    for (const char *name : Candidates) {
        GstElement *made = gst_element_factory_make(name, nullptr);
        if (!made)
            continue;
        GstPointer<GstElement> sink(GST_ELEMENT(gst_object_ref_sink(made)));
        if (gst_element_set_state(sink.get(), GST_STATE_READY) == GST_STATE_CHANGE_SUCCESS)
            return sink;
        gst_element_set_state(sink.get(), GST_STATE_NULL);
    }
    return nullptr;
}

struct Opening {
    std::mutex mutex;
    std::condition_variable done;
    bool isDone = false;
    bool isGivenUp = false;
    GstPointer<GstElement> sink;
};

void open(const std::shared_ptr<Opening> &opening) {
    GstPointer<GstElement> sink = openFirst();
    std::unique_lock lock(opening->mutex);
    opening->isDone = true;
    if (!opening->isGivenUp) {
        opening->sink = std::move(sink);
        opening->done.notify_one();
        return;
    }
    lock.unlock();
    if (sink)
        gst_element_set_state(sink.get(), GST_STATE_NULL);
}

} // namespace

GstPointer<GstElement> openGstSoundSink() {
    // On a thread of its own, because opening a device blocks as long as the server hangs, and
    // can't be interrupted.
    const auto opening = std::make_shared<Opening>();
    if (!startBackgroundThread(
            "velmora-sound", AtExit::Ignores, [opening] { open(opening); }, nullptr))
        return nullptr;
    std::unique_lock lock(opening->mutex);
    opening->isGivenUp =
        !opening->done.wait_for(lock, LongestOpening, [&] { return opening->isDone; });
    return std::move(opening->sink);
}

} // namespace velmora
