// SPDX-License-Identifier: Apache-2.0
#include "FadeImages.h"

#include "MainQueue.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"

#include <sys/mman.h>

#include <algorithm>
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

} // namespace

struct FadeImages::State {
    QSize pixels; ///< of the images that are ready, or being prepared
    std::vector<QImage> images;
    bool isPreparing = false;
    std::function<void()> ready;
    std::vector<QImage> used; ///< put back

    QImage takeUsed(QSize size);
};

QImage FadeImages::State::takeUsed(QSize size) {
    const auto found = std::find_if(used.begin(), used.end(),
                                    [size](const QImage &image) { return image.size() == size; });
    if (found == used.end())
        return {};
    QImage image = std::move(*found);
    used.erase(found);
    return image;
}

FadeImages::FadeImages() : m_state(std::make_shared<State>()) {}

FadeImages::~FadeImages() = default;

bool FadeImages::prepare(QSize pixels, std::function<void()> ready) {
    if (isSmall(pixels))
        return true;
    if (m_state->pixels != pixels) {
        m_state->pixels = pixels;
        m_state->images.clear();
        m_state->isPreparing = false;
    }
    if (!m_state->images.empty())
        return true;
    m_state->ready = std::move(ready);
    if (std::exchange(m_state->isPreparing, true))
        return false;
    ProcessRoot::get<FadeQueue>().run([weak = std::weak_ptr(m_state), pixels] {
        std::vector<QImage> images{mappedImage(pixels), mappedImage(pixels)};
        MainQueue::post([weak, pixels, images = std::move(images)]() mutable {
            const auto state = weak.lock();
            if (!state || state->pixels != pixels || !state->isPreparing)
                return;
            state->images = std::move(images);
            state->isPreparing = false;
            state->ready();
        });
    });
    return false;
}

QImage FadeImages::take(QSize pixels) {
    if (m_state->pixels == pixels && !m_state->images.empty()) {
        QImage image = std::move(m_state->images.back());
        m_state->images.pop_back();
        return image;
    }
    QImage image = m_state->takeUsed(pixels);
    if (image.isNull() && !isSmall(pixels))
        return mappedImage(pixels);
    if (image.isNull())
        image = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage FadeImages::takeUncleared(QSize pixels) {
    QImage image = m_state->takeUsed(pixels);
    return image.isNull() ? take(pixels) : image;
}

void FadeImages::put(QImage image) {
    if (image.isNull() || !image.isDetached() || !hasPixelsOfArgb32(image))
        return;
    image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(1);
    m_state->used.push_back(std::move(image));
}

} // namespace velmora
