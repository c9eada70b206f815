// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// Somebody who wants to know when ad data is ready. The downloader keeps its delegates.
class DownloadDelegate {
public:
    virtual ~DownloadDelegate() = default;

    /// The ad table is ready: ask for a banner now. The name's "С" is the Cyrillic Es.
    virtual void endDownloadСonfiguration() = 0;

    /// True when the delegate's window has been destroyed or its banner removed for good; the
    /// downloader then lets go of it.
    virtual bool isGone() const { return false; }
};

} // namespace velmora
