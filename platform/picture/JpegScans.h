// SPDX-License-Identifier: Apache-2.0
#pragma once

class QIODevice;

namespace velmora {

/// Counts the scans of a JPEG file. A progressive JPEG is decoded in passes over all its pixels,
/// one for each scan, and a scan needs no more than ten bytes. So a file of a few kilobytes can
/// take seconds to decode, and one of some megabytes hours, in which the process can't end.
/// Encoders write about ten scans.
class JpegScans {
public:
    static constexpr int Most = 100;

    /// Reads from the device's position on, no further than necessary. Any thread.
    static bool areTooMany(QIODevice &file);
};

} // namespace velmora
