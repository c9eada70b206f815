// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/ProcessFigures.h"
#include "benchmarks/download/PlainDownload.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

#include <optional>

namespace velmora::bench {

/// A process that downloads a small film, which makes the connection and all that is made once a
/// process, and then a large one. It prints how many megabytes of its own the process has more
/// some seconds after the small one; and of the large one the seconds, the seconds of processor
/// time, the megabytes more in use meanwhile, and those of its own some seconds afterwards.
class DownloadSubject {
public:
    /// The paths of the films on the ad server.
    static constexpr char SmallFilm[] = "/small.mp4";
    static constexpr char LargeFilm[] = "/large.mp4";

    /// @param isPlain  with a PlainDownload, not with the framework
    /// @param settleMs how long after a download the memory that is left is measured
    DownloadSubject(bool isPlain, int settleMs);

    void run();

private:
    using Completion = PlainDownload::Completion;

    void download(const char *path, const Completion &completion);
    void downloadLarge();
    void end(double seconds, const ProcessFigures &atEnd);

    std::optional<PlainDownload> m_plain;
    int m_settleMs;
    QElapsedTimer m_time;
    ProcessFigures m_before;
};

} // namespace velmora::bench
