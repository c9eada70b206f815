// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "GstPointer.h"

#include <QtCore/QByteArray>
#include <QtCore/QSize>

#include <gst/gst.h>

#include <mutex>

namespace velmora {

/// The elements that convert a video's pictures to the format of gstFrameFormat(), with square
/// pixels. Pictures that are larger than the place where they are shown are scaled first, which
/// costs less than to convert all of their pixels. Smaller ones stay as they are: Qt
/// enlarges them with several threads, for less than a videoscale element. Any thread.
class GstPictureSize {
public:
    /// The elements, as gst_parse_bin_from_description() takes them.
    static QByteArray description();

    /// Takes over the elements of a bin that was made from the description. Once, before pictures
    /// arrive. The bin must be in the state NULL before this object is destroyed.
    void attach(GstElement *bin);

    /// See VideoEngine::setPlace(); also before attach(). Applies from the next picture on.
    void setPlace(const QSize &place);

private:
    static GstPadProbeReturn seeInput(GstPad *, GstPadProbeInfo *info, gpointer self);

    QSize place();
    void apply();

    std::mutex m_mutex;
    QSize m_place;
    // The rest belongs to the thread that pictures arrive on.
    /// Of the video, with square pixels; empty until its format is known.
    QSize m_video;
    /// What pictures are scaled to; empty when they stay as they are.
    QSize m_size;
    /// Limits the size of what the scaling element gives out.
    GstPointer<GstElement> m_limit;
};

} // namespace velmora
