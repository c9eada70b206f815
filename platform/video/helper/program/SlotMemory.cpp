// SPDX-License-Identifier: Apache-2.0
#include "SlotMemory.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace velmora {

SlotMemory::SlotMemory(std::shared_ptr<PictureSlots> slots) : m_slots(std::move(slots)) {}

void *SlotMemory::allocate(std::size_t bytes) {
    if (bytes > PictureSlots::BytesOfSlot)
        return nullptr;
    const std::lock_guard lock(m_mutex);
    const auto free = std::find(m_isTaken.begin(), m_isTaken.end(), false);
    if (free == m_isTaken.end())
        return nullptr;
    *free = true;
    return m_slots->slot(int(free - m_isTaken.begin()));
}

void SlotMemory::release(void *memory) {
    const int slot = m_slots->indexOf(memory);
    if (slot < 0)
        return;
    const std::lock_guard lock(m_mutex);
    m_isTaken[std::size_t(slot)] = false;
}

int SlotMemory::keep(const QImage &picture) {
    // The receiver takes the beginning of a slot for the first pixel.
    const int slot = m_slots->indexOf(picture.constBits());
    if (slot < 0 || picture.constBits() != m_slots->slot(slot))
        return keepCopy(picture);
    QImage other = picture;
    const std::lock_guard lock(m_mutex);
    Kept &kept = m_kept[std::size_t(slot)];
    kept.picture.swap(other);
    ++kept.times;
    return slot;
}

int SlotMemory::keepCopy(const QImage &picture) {
    void *memory = allocate(std::size_t(picture.sizeInBytes()));
    if (!memory)
        return -1;
    std::memcpy(memory, picture.constBits(), std::size_t(picture.sizeInBytes()));
    const int slot = m_slots->indexOf(memory);
    const std::lock_guard lock(m_mutex);
    m_kept[std::size_t(slot)].times = 1;
    return slot;
}

void SlotMemory::letGo(int slot) {
    if (slot < 0 || slot >= PictureSlots::Count)
        return;
    // Destroyed without the lock, because the engine may then release the slot.
    QImage gone;
    {
        const std::lock_guard lock(m_mutex);
        Kept &kept = m_kept[std::size_t(slot)];
        if (kept.times == 0 || --kept.times > 0)
            return;
        kept.picture.swap(gone);
    }
    if (gone.isNull())
        release(m_slots->slot(slot));
}

} // namespace velmora
