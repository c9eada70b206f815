// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MediaKind.h"
#include "UrlSession.h"

#include <QtCore/QUrl>

#include <functional>

namespace velmora {

/// The ads' media files in the caches folder, under the names that they have on the ad server. A
/// file that is there and usable is neither downloaded again nor ever deleted, and two
/// addresses that end in the same name share one file. Main thread only.
class MediaCache {
public:
    struct Result {
        /// The local file; empty when there is none.
        QUrl file;
        /// Trying again in this run is of no use: the file is not what it should be, or there is no
        /// place for it.
        bool isHopeless = false;
    };
    using Completion = std::function<void(const Result &result)>;

    /// Provides the file at a remote address. If it is not cached it is downloaded, looked at
    /// (MediaCheck) and only then given its name. The completion is called once; inside this call
    /// when the file is cached or can't be downloaded at all.
    static void provide(const QUrl &remote, MediaKind kind, const Completion &completion);

    /// Deletes a file that turned out broken when it was shown; the next provide() downloads it.
    static void discard(const QUrl &localFile);
};

} // namespace velmora
