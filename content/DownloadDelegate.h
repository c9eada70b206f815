// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// Is told by the downloader when ads may be drawn.
class DownloadDelegate {
public:
    virtual ~DownloadDelegate() = default;

    /// Called on the main thread when the ad table is ready: the delegate may now ask for a banner.
    /// The "С" in the name is the Cyrillic letter Es.
    virtual void endDownloadСonfiguration() = 0;

    /// True when the delegate's window has been destroyed or its banner removed for good. The
    /// downloader then releases it.
    virtual bool isGone() const { return false; }
};

} // namespace velmora
