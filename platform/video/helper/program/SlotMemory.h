// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "PictureSlots.h"
#include "VideoEngine.h"

#include <array>
#include <memory>
#include <mutex>

namespace velmora {

/// Lets an engine decode into the slots, and keeps its pictures until they are no longer shown. Any
/// thread.
class SlotMemory final : public PictureMemory {
public:
    explicit SlotMemory(std::shared_ptr<PictureSlots> slots);

    void *allocate(std::size_t bytes) override;
    void release(void *memory) override;

    /// Keeps a picture until letGo() was called as often. One that is elsewhere in memory is copied
    /// into a slot.
    /// @return its slot; -1 when there is none left
    int keep(const QImage &picture);
    void letGo(int slot);

private:
    int keepCopy(const QImage &picture);

    const std::shared_ptr<PictureSlots> m_slots;
    std::mutex m_mutex;
    std::array<bool, PictureSlots::Count> m_isTaken{};
    struct Kept {
        /// Null for a copy.
        QImage picture;
        /// A picture on which the video is paused is shown again when it plays on.
        int times = 0;
    };
    std::array<Kept, PictureSlots::Count> m_kept;
};

} // namespace velmora
