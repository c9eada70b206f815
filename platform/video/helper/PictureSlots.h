// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QImage>

#include <memory>

namespace velmora {

/// The memory that the library shares with one video helper: slots of equal size for one picture
/// each. Only what is written takes memory. Neither side can change its size, so the library may
/// read it whatever the helper does.
class PictureSlots {
public:
    /// Enough for the pictures that are shown, received, waiting, and being decoded.
    static constexpr int Count = 8;
    /// Of a picture, in pixels.
    static constexpr int LargestSide = 4096;
    static constexpr std::size_t BytesOfSlot = std::size_t(LargestSide) * LargestSide * 4;

    /// Makes new memory, for reading. Returns null when the system has none.
    static std::shared_ptr<PictureSlots> create();
    /// Opens the memory of a file that create() has made, for reading and writing. Takes the file.
    static std::shared_ptr<PictureSlots> open(int file);
    ~PictureSlots();
    PictureSlots(const PictureSlots &) = delete;
    PictureSlots &operator=(const PictureSlots &) = delete;

    int file() const { return m_file; }

    uchar *slot(int index) const { return m_memory + std::size_t(index) * BytesOfSlot; }
    /// The slot that an address is in; -1 for none.
    int indexOf(const void *address) const;

    /// Whether a picture of this size fits into a slot.
    static bool fits(int width, int height, int bytesPerLine);

private:
    PictureSlots(int file, uchar *memory) : m_file(file), m_memory(memory) {}
    static std::shared_ptr<PictureSlots> map(int file, int protection);

    const int m_file;
    uchar *const m_memory;
};

} // namespace velmora
