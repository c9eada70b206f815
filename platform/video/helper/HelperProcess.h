// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "FileDescriptor.h"
#include "HelperChannel.h"
#include "PictureSlots.h"

#include <memory>

namespace velmora {

class HelperProcess;

/// See HelperProcess::start().
struct HelperStart {
    std::unique_ptr<HelperProcess> process;
    /// Why there is no process.
    QString error;
    /// There is no helper, or this process can't start one now nor later.
    bool isImpossible = false;
};

/// A running video helper. The host does not notice this child process: it gets no SIGCHLD, its own
/// calls of wait() do not return it, and it inherits none of the host's files but the standard
/// ones. Any thread but the main one.
class HelperProcess {
public:
    /// Starts a helper and waits until it runs, some ten milliseconds.
    static HelperStart start();

    /// Ends the helper and waits for that.
    ~HelperProcess();
    HelperProcess(const HelperProcess &) = delete;
    HelperProcess &operator=(const HelperProcess &) = delete;

    const std::shared_ptr<HelperChannel> &channel() const { return m_channel; }
    const std::shared_ptr<PictureSlots> &pictures() const { return m_pictures; }

    /// Ends the helper, unless it has ended, and waits for that.
    void end();

private:
    HelperProcess(FileDescriptor process, std::shared_ptr<HelperChannel> channel,
                  std::shared_ptr<PictureSlots> pictures);
    bool waitUntilReady();

    /// Stands for the process.
    FileDescriptor m_process;
    const std::shared_ptr<HelperChannel> m_channel;
    const std::shared_ptr<PictureSlots> m_pictures;
};

} // namespace velmora
