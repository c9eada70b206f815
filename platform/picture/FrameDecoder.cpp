// SPDX-License-Identifier: Apache-2.0
#include "FrameDecoder.h"

#include "PictureFile.h"

#include <QtCore/QFile>
#include <QtGui/QImageReader>

#include <algorithm>

namespace velmora {

namespace {

constexpr int ShortestDelayMs = 20;

bool isOpaqueArgb(const QImage &image) {
    if (image.format() != QImage::Format_ARGB32 &&
        image.format() != QImage::Format_ARGB32_Premultiplied)
        return false;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        if (!std::all_of(line, line + image.width(),
                         [](QRgb pixel) { return qAlpha(pixel) == 255; }))
            return false;
    }
    return true;
}

// Opaque pictures are scaled and drawn several times as fast as those with transparency.
QImage drawable(const QImage &image) {
    if (!image.hasAlphaChannel())
        return image.convertToFormat(QImage::Format_RGB32);
    if (!isOpaqueArgb(image))
        return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QImage opaque = image;
    opaque.reinterpretAsFormat(QImage::Format_RGB32);
    return opaque;
}

QImage scaled(const QImage &image, const QSize &size) {
    if (image.size() == size)
        return drawable(image);
    // The reader goes on to draw into the image that this one shares: to reinterpret that would
    // copy it.
    const QImage source = isOpaqueArgb(image)
                              ? QImage(image.constBits(), image.width(), image.height(),
                                       image.bytesPerLine(), QImage::Format_RGB32)
                              : image;
    return drawable(source.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

} // namespace

FrameDecoder::FrameDecoder(const PictureFile &file)
    : m_path(file.path()), m_isAnimation(file.isAnimation()) {}

FrameDecoder::FrameDecoder(const QImage &image) : m_current(image) {}

FrameDecoder::~FrameDecoder() = default;

void FrameDecoder::readFromStart() {
    const bool isFirst = !m_file;
    if (isFirst) {
        m_file = std::make_unique<QFile>(m_path);
        m_file->open(QIODevice::ReadOnly);
    }
    m_file->seek(0);
    m_reader = std::make_unique<QImageReader>(m_file.get());
    m_framesOfPass = 0;
    if (isFirst)
        m_repeatsLeft = m_reader->loopCount();
}

bool FrameDecoder::rewindAfterLastFrame() {
    // A file whose frames turn out to be one, or none, would be read without end.
    if (m_repeatsLeft == 0 || m_framesOfPass < 2)
        return false;
    if (m_repeatsLeft > 0)
        --m_repeatsLeft;
    readFromStart();
    return true;
}

// Also opens the file for the first time.
bool FrameDecoder::resume() {
    if (m_reader)
        return true;
    const int frames = m_framesOfPass;
    readFromStart();
    while (m_framesOfPass < frames) {
        if (!readNext())
            return false;
    }
    return true;
}

void FrameDecoder::dropFrames() {
    m_reader.reset();
    if (!m_path.isEmpty())
        m_current = {};
}

bool FrameDecoder::readNext() {
    // The reader draws the next frame over the last one, and would copy it while it is kept here.
    m_current = {};
    m_current = m_reader->read();
    if (m_current.isNull()) {
        if (m_framesOfPass == 0 && !m_hasDecoded)
            m_error = m_reader->errorString();
        m_reader.reset(); // what asks for the last frame again gets it from a new one
        return false;
    }
    m_hasDecoded = true;
    ++m_framesOfPass;
    m_delayMs = std::max(ShortestDelayMs, m_reader->nextImageDelay());
    return true;
}

std::optional<FrameDecoder::Frame> FrameDecoder::next(const QSize &size) {
    if (!m_isAnimation)
        return still(size);
    if (!resume() || (!m_reader->canRead() && !rewindAfterLastFrame()) || !readNext())
        return {};
    return again(size);
}

std::optional<FrameDecoder::Frame> FrameDecoder::again(const QSize &size) {
    if (!m_isAnimation)
        return still(size);
    // Reading the first frame of a pass may have failed, so that no frame is left: try it again.
    if (!resume() || (m_current.isNull() && !readNext()))
        return {};
    return Frame{scaled(m_current, size), m_delayMs};
}

// A large picture is not kept at its own size, and some formats decode a smaller one faster.
std::optional<FrameDecoder::Frame> FrameDecoder::still(const QSize &size) {
    if (!m_current.isNull())
        return Frame{scaled(m_current, size)};
    const QImage image = PictureFile::firstFrame(m_path, size, &m_error);
    if (!image.isNull())
        return Frame{drawable(image)};
    return {};
}

} // namespace velmora
