// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchServer.h"

#include <QtCore/QByteArray>

namespace velmora::bench {

/// What the ad server of a row serves: one banner and one video.
class Campaign {
public:
    static void serve(BenchServer &bench, const QByteArray &banner, const QByteArray &film);

    static QByteArray sampleBanner();
    static QByteArray sampleFilm();
    /// The same film in a file of about so many bytes, of which most are in a box to be skipped.
    static QByteArray withSize(const QByteArray &film, qsizetype bytes);
};

} // namespace velmora::bench
