// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ProcessRoot.h"
#include "SerialQueue.h"

#include <atomic>
#include <memory>

namespace velmora::test {

/// Keeps the disk queue busy, so that files are neither read nor written, from construction to
/// release() or destruction.
class HeldDisk {
public:
    HeldDisk() {
        ProcessRoot::get<DiskQueue>().run([isHeld = m_isHeld] { isHeld->wait(true); });
    }
    ~HeldDisk() { release(); }
    HeldDisk(const HeldDisk &) = delete;
    HeldDisk &operator=(const HeldDisk &) = delete;

    void release() {
        *m_isHeld = false;
        m_isHeld->notify_all();
    }

private:
    const std::shared_ptr<std::atomic<bool>> m_isHeld = std::make_shared<std::atomic<bool>>(true);
};

} // namespace velmora::test
