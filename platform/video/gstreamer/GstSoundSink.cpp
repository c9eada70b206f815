// SPDX-License-Identifier: Apache-2.0
#include "GstSoundSink.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace velmora {

namespace {

using namespace std::chrono_literals;

// Much more than a sound server needs to answer, and little enough to wait for with a picture.
constexpr auto LongestOpening = 700ms;

// In this order, rather than by asking for whatever there is: some others are no sound devices,
// and some write to the host's standard error when they find no server.
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
    // A server that hangs holds up whoever calls it, and nothing interrupts that.
    const auto opening = std::make_shared<Opening>();
    try {
        std::thread([opening] { open(opening); }).detach();
    } catch (const std::system_error &) {
        return nullptr;
    }
    std::unique_lock lock(opening->mutex);
    opening->isGivenUp =
        !opening->done.wait_for(lock, LongestOpening, [&] { return opening->isDone; });
    return std::move(opening->sink);
}

} // namespace velmora
