// SPDX-License-Identifier: Apache-2.0
#include "FadeImages.h"

#include "MainQueue.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"

#include <sys/mman.h>

#include <utility>

namespace velmora {

namespace {

// The pages of a smaller image cost less than a millisecond.
constexpr qsizetype SmallBytes = 2'000'000;

class FadeQueue : public SerialQueue {
public:
    FadeQueue() : SerialQueue("velmora-fades", AtEnd::Drops) {}
};

struct Mapping {
    void *memory;
    size_t size;
};

void unmap(void *info) {
    const std::unique_ptr<Mapping> mapping(static_cast<Mapping *>(info));
    munmap(mapping->memory, mapping->size);
}

qsizetype bytesOf(QSize pixels) {
    return qsizetype(pixels.width()) * pixels.height() * 4;
}

bool hasPixelsOfArgb32(const QImage &image) {
    return image.format() == QImage::Format_ARGB32_Premultiplied ||
           image.format() == QImage::Format_RGB32;
}

bool isSmall(QSize pixels) {
    return bytesOf(pixels) <= SmallBytes;
}

// Not from malloc(), which would keep the memory after a fade.
QImage mappedImage(QSize pixels) {
    const auto size = size_t(bytesOf(pixels));
    void *memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        return {};
    QImage image(static_cast<uchar *>(memory), pixels.width(), pixels.height(),
                 qsizetype(pixels.width()) * 4, QImage::Format_ARGB32_Premultiplied, unmap,
                 new Mapping{memory, size});
    image.fill(Qt::transparent);
    return image;
}

QImage takeLast(std::vector<QImage> &images) {
    QImage image = std::move(images.back());
    images.pop_back();
    return image;
}

} // namespace

struct FadeImages::State {
    QSize pixels; ///< of the images that are ready, or being prepared
    std::vector<QImage> images = {};
    std::vector<QImage> used = {}; ///< put back, of the same size
    bool isPreparing = false;
    std::function<void()> ready = {};
};

FadeImages::FadeImages() : m_state(std::make_shared<State>()) {}

FadeImages::~FadeImages() = default;

bool FadeImages::prepare(QSize pixels, std::function<void()> ready) {
    if (isSmall(pixels))
        return true;
    if (m_state->pixels != pixels)
        *m_state = {.pixels = pixels};
    if (!m_state->images.empty())
        return true;
    m_state->ready = std::move(ready);
    if (std::exchange(m_state->isPreparing, true))
        return false;
    ProcessRoot::get<FadeQueue>().run([weak = std::weak_ptr(m_state), pixels] {
        std::vector<QImage> images{mappedImage(pixels), mappedImage(pixels)};
        MainQueue::post([weak, pixels, images = std::move(images)]() mutable {
            const auto state = weak.lock();
            if (!state || state->pixels != pixels)
                return;
            state->images = std::move(images);
            state->isPreparing = false;
            state->ready();
        });
    });
    return false;
}

QImage FadeImages::take(QSize pixels) {
    const bool fits = m_state->pixels == pixels;
    if (fits && !m_state->images.empty())
        return takeLast(m_state->images);
    if (fits && !m_state->used.empty()) {
        QImage image = takeLast(m_state->used);
        image.fill(Qt::transparent);
        return image;
    }
    if (!isSmall(pixels))
        return mappedImage(pixels);
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage FadeImages::takeUncleared(QSize pixels) {
    if (m_state->pixels == pixels && !m_state->used.empty())
        return takeLast(m_state->used);
    return take(pixels);
}

void FadeImages::put(QImage image) {
    if (image.isNull() || !image.isDetached() || !hasPixelsOfArgb32(image))
        return;
    if (m_state->pixels != image.size())
        *m_state = {.pixels = image.size()};
    image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(1);
    m_state->used.push_back(std::move(image));
}

} // namespace velmora
