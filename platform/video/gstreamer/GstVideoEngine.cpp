// SPDX-License-Identifier: Apache-2.0
#include "GstVideoEngine.h"

#include "GstFrame.h"
#include "GstPictureAllocator.h"
#include "GstSoundSink.h"

#include <QtCore/QFile>

#include <gst/base/gstbasetransform.h>
#include <gst/video/video.h>

namespace velmora {

namespace {

// How long a pipeline that is opening may have no running thread before that counts as a failure.
constexpr qint64 LongestIdleMs = 300;
// The longest wait for a change of the pipeline's state.
constexpr GstClockTime LongestChange = 2 * GST_SECOND;

double seconds(GstClockTime time) {
    return GST_CLOCK_TIME_IS_VALID(time) ? double(time) / GST_SECOND : 0;
}

// Initialises GStreamer. Returns the error, empty on success.
QString initialise() {
    // Otherwise GStreamer replaces the host's crash handlers while it scans plugins.
    gst_segtrap_set_enabled(FALSE);
    GError *error = nullptr;
    if (gst_init_check(nullptr, nullptr, &error))
        return {};
    const GlibError owned(error);
    return QString::fromUtf8(error ? error->message : "GStreamer does not start");
}

// Whether a thread is started for any of the elements, also one that is waiting.
bool hasRunningThread(GstElement *pipeline) {
    bool found = false;
    const auto lookAt = [](const GValue *value, gpointer result) {
        auto *element = GST_ELEMENT(g_value_get_object(value));
        const auto lookAtPad = [](GstElement *, GstPad *pad, gpointer running) -> gboolean {
            if (gst_pad_get_task_state(pad) != GST_TASK_STARTED)
                return TRUE;
            *static_cast<bool *>(running) = true;
            return FALSE;
        };
        gst_element_foreach_pad(element, lookAtPad, result);
    };
    GstIterator *elements = gst_bin_iterate_recurse(GST_BIN(pipeline));
    while (gst_iterator_foreach(elements, lookAt, &found) == GST_ITERATOR_RESYNC)
        gst_iterator_resync(elements);
    gst_iterator_free(elements);
    return found;
}

// The elements that pictures go through: turned upright, and scaled in the format of QImage. The
// sink keeps the latest two, and drops the older one when nobody takes it.
QByteArray pictureDescription() {
    const GstPointer<GstElementFactory> flip(gst_element_factory_find("videoflip"));
    return QByteArray("queue max-size-buffers=3 max-size-bytes=0 max-size-time=0 ! ") +
           (flip ? "videoflip name=flip video-direction=auto ! " : "") +
           GstPictureSize::description() +
           " ! appsink name=pictures max-buffers=2 drop=true sync=true enable-last-sample=false";
}

// Names the colours of a video that does not say which ones it has. GStreamer guesses them from the
// height where it converts the pictures, which are turned and scaled by then.
GstCapsPointer withColours(GstCaps *caps) {
    GstCapsPointer named(gst_caps_copy(caps));
    GstVideoInfo info;
    if (!gst_video_info_from_caps(&info, caps))
        return named;
    if (const GlibString colours{gst_video_colorimetry_to_string(&info.colorimetry)})
        gst_caps_set_simple(named.get(), "colorimetry", G_TYPE_STRING, colours.get(), nullptr);
    return named;
}

} // namespace

// What GStreamer calls, on the pipeline's threads.
struct GstVideoEngine::Callbacks {
    static GstVideoEngine *engine(gpointer data) { return static_cast<GstVideoEngine *>(data); }

    static void padAdded(GstElement *, GstPad *pad, gpointer data) { engine(data)->addStream(pad); }

    static GstFlowReturn newPreroll(GstAppSink *sink, gpointer data) {
        const GstSamplePointer sample(gst_app_sink_try_pull_preroll(sink, 0));
        if (sample)
            engine(data)->showSample(sample.get());
        return GST_FLOW_OK;
    }

    static GstFlowReturn newSample(GstAppSink *sink, gpointer data) {
        const GstSamplePointer sample(gst_app_sink_try_pull_sample(sink, 0));
        if (sample)
            engine(data)->showSample(sample.get());
        return GST_FLOW_OK;
    }

    static GstPadProbeReturn pictureFormat(GstPad *, GstPadProbeInfo *info, gpointer) {
        GstEvent *event = GST_PAD_PROBE_INFO_EVENT(info);
        if (GST_EVENT_TYPE(event) != GST_EVENT_CAPS)
            return GST_PAD_PROBE_OK;
        GstCaps *caps = nullptr;
        gst_event_parse_caps(event, &caps);
        GstEvent *named = gst_event_new_caps(withColours(caps).get());
        gst_event_set_seqnum(named, gst_event_get_seqnum(event));
        gst_event_unref(event);
        GST_PAD_PROBE_INFO_DATA(info) = named;
        return GST_PAD_PROBE_OK;
    }

    // Proposes the memory for pictures. The sink itself does not propose any.
    static GstPadProbeReturn allocationQuery(GstPad *, GstPadProbeInfo *info, gpointer data) {
        GstQuery *query = GST_PAD_PROBE_INFO_QUERY(info);
        if (GST_QUERY_TYPE(query) != GST_QUERY_ALLOCATION)
            return GST_PAD_PROBE_OK;
        gst_query_add_allocation_param(query, engine(data)->m_allocator.get(), nullptr);
        return GST_PAD_PROBE_HANDLED;
    }

    static GstPadProbeReturn soundBuffer(GstPad *, GstPadProbeInfo *info, gpointer data) {
        engine(data)->soundMoved(GST_PAD_PROBE_INFO_BUFFER(info));
        return GST_PAD_PROBE_OK;
    }
};

std::unique_ptr<GstVideoEngine> GstVideoEngine::create(VideoEngineListener *listener,
                                                       QString *error) {
    static const QString fault = initialise();
    if (fault.isEmpty())
        return std::unique_ptr<GstVideoEngine>(new GstVideoEngine(listener));
    *error = fault;
    return nullptr;
}

GstVideoEngine::GstVideoEngine(VideoEngineListener *listener)
    : m_listener(listener), m_decoder(listener), m_bus(listener) {}

GstVideoEngine::~GstVideoEngine() {
    m_bus.stop();
    if (m_pipeline)
        gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
    closeUnusedSoundDevice();
}

void GstVideoEngine::warmUp() {
    // The plugins for MP4 files with H.264 and AAC, and those of every pipeline here.
    for (const char *name :
         {"qtdemux", "h264parse", "avdec_h264", "avdec_aac", "filesrc", "decodebin", "videoflip",
          "videoconvert", "videoscale", "appsink", "audioconvert", "audioresample", "volume"}) {
        if (const GstPointer<GstElementFactory> factory{gst_element_factory_find(name)})
            GstPointer<GstPluginFeature>(
                gst_plugin_feature_load(GST_PLUGIN_FEATURE(factory.get())));
    }
}

void GstVideoEngine::load(const VideoSource &source) {
    m_wantsSound = source.sound;
    m_pictureSize.setPlace(source.place);
    if (source.pictureMemory)
        m_allocator = makeGstPictureAllocator(source.pictureMemory);
    m_pipeline.reset(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    m_bus.start(m_pipeline.get());

    GstElement *file = gst_element_factory_make("filesrc", nullptr);
    GstElement *decoder = m_decoder.create();
    if (!file || !decoder) {
        for (GstElement *element : {file, decoder}) {
            if (element)
                gst_object_unref(gst_object_ref_sink(element));
        }
        return m_listener->failed(
            QStringLiteral("the package gstreamer1.0-plugins-base is missing"), false);
    }
    g_object_set(file, "location", QFile::encodeName(source.path).constData(), nullptr);
    g_signal_connect(decoder, "pad-added", G_CALLBACK(Callbacks::padAdded), this);
    gst_bin_add_many(GST_BIN(m_pipeline.get()), file, decoder, nullptr);
    gst_element_link(file, decoder);
    openSoundDevice();
    if (source.aboutToRead)
        source.aboutToRead();
    setState(GST_STATE_PAUSED);
}

// Before it is known whether the file has sound, because a process that decodes may open no
// devices.
void GstVideoEngine::openSoundDevice() {
    if (m_wantsSound)
        m_soundDevice = openGstSoundSink();
    if (!m_soundDevice)
        m_decoder.leaveSoundEncoded();
}

GstPointer<GstElement> GstVideoEngine::takeSoundDevice() {
    const std::lock_guard lock(m_soundMutex);
    return std::move(m_soundDevice);
}

void GstVideoEngine::closeUnusedSoundDevice() {
    if (const auto device = takeSoundDevice())
        gst_element_set_state(device.get(), GST_STATE_NULL);
}

void GstVideoEngine::setState(GstState state) {
    if (!m_pipeline)
        return;
    if (gst_element_set_state(m_pipeline.get(), state) == GST_STATE_CHANGE_FAILURE)
        m_listener->failed(QStringLiteral("the pipeline refuses to start"), false);
}

// The decoder ignores the error of a plugin that fails while it is added to the pipeline. No
// message follows then, and no thread of the pipeline is running.
void GstVideoEngine::checkOpening() {
    if (!m_pipeline || m_bus.isPrepared() || hasRunningThread(m_pipeline.get()))
        m_idleTime.invalidate();
    else if (!m_idleTime.isValid())
        m_idleTime.start();
    else if (m_idleTime.hasExpired(LongestIdleMs))
        m_listener->failed(QStringLiteral("there is nothing in it to play"), false);
}

void GstVideoEngine::opened() {
    m_isOpened = true;
    waitForState();
    closeUnusedSoundDevice();
    if (m_wantsToPlay)
        play();
}

void GstVideoEngine::play() {
    m_wantsToPlay = true;
    if (!m_isOpened)
        return;
    setState(GST_STATE_PLAYING);
    waitForState();
}

void GstVideoEngine::pause() {
    m_wantsToPlay = false;
    if (!m_isOpened)
        return;
    setState(GST_STATE_PAUSED);
    waitForState();
}

// Waits until a change of state is complete: a pipeline that gets the next change before may hang.
void GstVideoEngine::waitForState() {
    if (m_pipeline)
        gst_element_get_state(m_pipeline.get(), nullptr, nullptr, LongestChange);
}

void GstVideoEngine::seek(double target) {
    if (!m_bus.isPrepared())
        return;
    const auto flags = GstSeekFlags(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
    if (!gst_element_seek_simple(m_pipeline.get(), GST_FORMAT_TIME, flags,
                                 gint64(target * GST_SECOND)))
        return m_listener->remark(QStringLiteral("it cannot be sent to another place"));
    waitForState();
}

void GstVideoEngine::setMuted(bool muted) {
    m_muted = muted;
    applyMuted();
}

void GstVideoEngine::applyMuted() {
    if (!m_pipeline)
        return;
    const GstPointer<GstElement> volume(gst_bin_get_by_name(GST_BIN(m_pipeline.get()), "volume"));
    if (volume)
        g_object_set(volume.get(), "mute", m_muted ? TRUE : FALSE, nullptr);
}

void GstVideoEngine::setPlace(const QSize &place) {
    m_pictureSize.setPlace(place);
}

double GstVideoEngine::durationSeconds() {
    gint64 duration = 0;
    if (!m_pipeline || !gst_element_query_duration(m_pipeline.get(), GST_FORMAT_TIME, &duration))
        return 0;
    return duration > 0 ? seconds(GstClockTime(duration)) : 0;
}

// On the pipeline's threads from here.

void GstVideoEngine::addStream(GstPad *pad) {
    const GstCapsPointer caps(gst_pad_get_current_caps(pad));
    if (!caps)
        return;
    const char *kind = gst_structure_get_name(gst_caps_get_structure(caps.get(), 0));
    if (!m_decoder.accepts(caps.get()))
        return;
    // Only the first stream of each kind is played.
    if (g_str_has_prefix(kind, "video/") && !m_hasPictures.exchange(true)) {
        m_bus.setHasPictures();
        showPictures(pad);
    } else if (g_str_has_prefix(kind, "audio/") && !m_hasSound.exchange(true)) {
        playSound(pad);
    }
}

GstElement *GstVideoEngine::addPart(const char *description) {
    GError *raw = nullptr;
    GstElement *part = gst_parse_bin_from_description_full(description, TRUE, nullptr,
                                                           GST_PARSE_FLAG_FATAL_ERRORS, &raw);
    const GlibError error(raw);
    if (part)
        gst_bin_add(GST_BIN(m_pipeline.get()), part);
    else
        m_listener->failed(
            QStringLiteral("%1 (from the package gstreamer1.0-plugins-base or -good)")
                .arg(QString::fromUtf8(raw ? raw->message : "a plugin is missing")),
            false);
    return part;
}

void GstVideoEngine::showPictures(GstPad *pad) {
    GstElement *part = addPart(pictureDescription());
    if (!part)
        return;
    m_pictureSize.attach(part);
    // Until a tag says that the video is turned. It would copy each picture otherwise.
    if (const GstPointer<GstElement> flip{gst_bin_get_by_name(GST_BIN(part), "flip")})
        gst_base_transform_set_passthrough(GST_BASE_TRANSFORM(flip.get()), TRUE);
    const GstPointer<GstElement> sink(gst_bin_get_by_name(GST_BIN(part), "pictures"));
    GstAppSinkCallbacks callbacks{};
    callbacks.new_preroll = Callbacks::newPreroll;
    callbacks.new_sample = Callbacks::newSample;
    gst_app_sink_set_callbacks(GST_APP_SINK(sink.get()), &callbacks, this, nullptr);
    if (m_allocator) {
        const GstPointer<GstPad> end(gst_element_get_static_pad(sink.get(), "sink"));
        gst_pad_add_probe(end.get(), GST_PAD_PROBE_TYPE_QUERY_DOWNSTREAM,
                          Callbacks::allocationQuery, this, nullptr);
    }
    gst_element_sync_state_with_parent(part);
    const GstPointer<GstPad> input(gst_element_get_static_pad(part, "sink"));
    gst_pad_add_probe(input.get(), GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM, Callbacks::pictureFormat,
                      nullptr, nullptr);
    gst_pad_link(pad, input.get());
}

void GstVideoEngine::playSound(GstPad *pad) {
    const GstPointer<GstElement> device = takeSoundDevice();
    if (m_wantsSound && !device)
        m_listener->remark(QStringLiteral("no sound device answers, so it plays without"));
    // Without a device, a sink that discards the sound at the right time keeps the pipeline going.
    GstElement *part =
        addPart(device ? "queue ! audioconvert ! audioresample ! volume name=volume" : "queue");
    if (!part)
        return;
    applyMuted();
    GstElement *sink = device ? GST_ELEMENT(gst_object_ref(device.get()))
                              : gst_element_factory_make("fakesink", nullptr);
    if (!device)
        g_object_set(sink, "sync", TRUE, nullptr);
    gst_bin_add(GST_BIN(m_pipeline.get()), sink);
    // The bin has taken a reference of its own.
    if (device)
        gst_object_unref(sink);
    if (m_wantsSound)
        m_bus.setSoundSink(sink);
    const GstPointer<GstPad> end(gst_element_get_static_pad(sink, "sink"));
    gst_pad_add_probe(end.get(), GST_PAD_PROBE_TYPE_BUFFER, Callbacks::soundBuffer, this, nullptr);
    gst_element_link(part, sink);
    gst_element_sync_state_with_parent(sink);
    gst_element_sync_state_with_parent(part);
    const GstPointer<GstPad> input(gst_element_get_static_pad(part, "sink"));
    gst_pad_link(pad, input.get());
}

void GstVideoEngine::showSample(GstSample *sample) {
    const GstBuffer *buffer = gst_sample_get_buffer(sample);
    const GstClockTime shown = gst_segment_to_stream_time(gst_sample_get_segment(sample),
                                                          GST_FORMAT_TIME, GST_BUFFER_PTS(buffer));
    m_listener->moved(seconds(shown), seconds(GST_BUFFER_DURATION(buffer)));
    const QImage picture = gstFrameImage(sample);
    if (!picture.isNull())
        m_listener->frame(picture);
}

void GstVideoEngine::soundMoved(GstBuffer *buffer) {
    m_listener->moved(seconds(GST_BUFFER_PTS(buffer)), 0);
}

} // namespace velmora
