// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "UrlSession.h"

#include <QtCore/QUrl>

#include <functional>

namespace velmora {

/// The ads' media files in the caches folder, under the names that they have on the ad server. A
/// file that is there is used as it is: it is neither downloaded again nor ever deleted, and two
/// addresses that end in the same name share one file. Main thread only.
class MediaCache {
public:
    /// Gets the local file, or an empty URL when there is none.
    using Completion = std::function<void(const QUrl &localFile)>;

    /// Provides the file at a remote address, downloading it if it is not cached.
    /// @return the running download; null when the completion was called inside this call, because
    ///         the file is cached or because it cannot be downloaded at all
    static UrlTaskPtr provide(const QUrl &remote, const Completion &completion);
};

} // namespace velmora
