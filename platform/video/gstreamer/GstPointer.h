// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gst/gst.h>

#include <memory>

namespace velmora {

struct GstObjectRelease {
    void operator()(void *object) const { gst_object_unref(object); }
};
struct GstCapsRelease {
    void operator()(GstCaps *caps) const { gst_caps_unref(caps); }
};
struct GstSampleRelease {
    void operator()(GstSample *sample) const { gst_sample_unref(sample); }
};
struct GlibRelease {
    void operator()(void *memory) const { g_free(memory); }
};
struct GlibErrorRelease {
    void operator()(GError *error) const { g_error_free(error); }
};

/// Owns one reference to a GstObject.
template<class T>
using GstPointer = std::unique_ptr<T, GstObjectRelease>;

using GstCapsPointer = std::unique_ptr<GstCaps, GstCapsRelease>;
using GstSamplePointer = std::unique_ptr<GstSample, GstSampleRelease>;
using GlibString = std::unique_ptr<char, GlibRelease>;
using GlibError = std::unique_ptr<GError, GlibErrorRelease>;

} // namespace velmora
