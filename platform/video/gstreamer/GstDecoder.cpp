// SPDX-License-Identifier: Apache-2.0
#include "GstDecoder.h"

#include <QtCore/QSize>

#include <algorithm>
#include <cstring>

namespace velmora {

namespace {

// Results of decodebin's signal "autoplug-select", whose type is not in a public header.
constexpr int TryFactory = 0;
constexpr int SkipFactory = 2;

// One thread decodes pictures of up to this side, in pixels, much faster than they are shown. More
// threads would cost more memory and processor time than they save.
constexpr int LargestForOneThread = 1280;

// The size of the pictures in pixels; empty when the format does not contain it.
QSize pictureSize(const GstCaps *caps) {
    const GstStructure *format = gst_caps_get_structure(caps, 0);
    int width = 0;
    int height = 0;
    if (!gst_structure_get_int(format, "width", &width) ||
        !gst_structure_get_int(format, "height", &height))
        return {};
    return {width, height};
}

// A file from a server may really be a playlist, a project or a session description. So plugins
// that access the network or other files are not used. Still images are no videos.
bool isWanted(GstElementFactory *factory, const GstCaps *caps) {
    if (g_str_has_prefix(gst_structure_get_name(gst_caps_get_structure(caps, 0)), "image/"))
        return false;
    const char *kind = gst_element_factory_get_metadata(factory, GST_ELEMENT_METADATA_KLASS);
    for (const char *refused : {"Adaptive", "Editing", "Network", "Source"}) {
        if (kind && std::strstr(kind, refused))
            return false;
    }
    return true;
}

} // namespace

GstElement *GstDecoder::create() {
    GstElement *decoder = gst_element_factory_make("decodebin", nullptr);
    if (!decoder)
        return nullptr;
    // Hardware decoders load graphics drivers into the host, and save little at these sizes.
    g_object_set(decoder, "force-sw-decoders", TRUE, nullptr);
    g_signal_connect(decoder, "autoplug-continue", G_CALLBACK(continuesWith), this);
    g_signal_connect(decoder, "autoplug-select", G_CALLBACK(choosePlugin), this);
    g_signal_connect(decoder, "element-added", G_CALLBACK(elementAdded), this);
    return decoder;
}

bool GstDecoder::accepts(const GstCaps *caps) {
    const QSize size = pictureSize(caps);
    const int side = std::max(size.width(), size.height());
    if (side > 0)
        m_isSmall = side <= LargestForOneThread;
    if (side <= LargestSide && qint64(size.width()) * size.height() <= MostPixels)
        return true;
    m_listener->failed(QStringLiteral("its pictures are too large"), false);
    return false;
}

int GstDecoder::choosePlugin(GstElement *, GstPad *, GstCaps *caps, GstElementFactory *factory,
                             gpointer decoder) {
    return static_cast<GstDecoder *>(decoder)->accepts(caps) && isWanted(factory, caps)
               ? TryFactory
               : SkipFactory;
}

gboolean GstDecoder::continuesWith(GstElement *, GstPad *, GstCaps *caps, gpointer decoder) {
    const GstStructure *format = gst_caps_get_structure(caps, 0);
    gboolean isFramed = FALSE;
    // A stream that is not in a container has no times before it is parsed.
    const bool hasTimes = gst_structure_get_boolean(format, "framed", &isFramed) && isFramed;
    const bool isSound = g_str_has_prefix(gst_structure_get_name(format), "audio/");
    return static_cast<GstDecoder *>(decoder)->m_decodesSound || !isSound || !hasTimes;
}

void GstDecoder::elementAdded(GstBin *, GstElement *element, gpointer decoder) {
    if (static_cast<GstDecoder *>(decoder)->m_isSmall &&
        g_object_class_find_property(G_OBJECT_GET_CLASS(element), "max-threads"))
        g_object_set(element, "max-threads", 1, nullptr);
}

} // namespace velmora
