// SPDX-License-Identifier: Apache-2.0
#include "PictureSlots.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace velmora {

namespace {

constexpr std::size_t AllBytes = PictureSlots::BytesOfSlot * PictureSlots::Count;

} // namespace

std::shared_ptr<PictureSlots> PictureSlots::create() {
    const int file = memfd_create("velmora-pictures", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (file < 0)
        return nullptr;
    if (ftruncate(file, off_t(AllBytes)) == 0 &&
        fcntl(file, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) == 0)
        return map(file, PROT_READ);
    ::close(file);
    return nullptr;
}

std::shared_ptr<PictureSlots> PictureSlots::open(int file) {
    return map(file, PROT_READ | PROT_WRITE);
}

std::shared_ptr<PictureSlots> PictureSlots::map(int file, int protection) {
    void *memory = mmap(nullptr, AllBytes, protection, MAP_SHARED | MAP_NORESERVE, file, 0);
    if (memory != MAP_FAILED)
        return std::shared_ptr<PictureSlots>(new PictureSlots(file, static_cast<uchar *>(memory)));
    ::close(file);
    return nullptr;
}

PictureSlots::~PictureSlots() {
    munmap(m_memory, AllBytes);
    ::close(m_file);
}

int PictureSlots::indexOf(const void *address) const {
    const auto *byte = static_cast<const uchar *>(address);
    if (byte < m_memory || byte >= m_memory + AllBytes)
        return -1;
    return int(std::size_t(byte - m_memory) / BytesOfSlot);
}

bool PictureSlots::fits(int width, int height, int bytesPerLine) {
    return width > 0 && width <= LargestSide && height > 0 && height <= LargestSide &&
           width <= bytesPerLine / 4 &&
           std::size_t(bytesPerLine) * std::size_t(height) <= BytesOfSlot;
}

} // namespace velmora
