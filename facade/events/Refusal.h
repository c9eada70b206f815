// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/VelmoraEvents.h>

namespace velmora {

/// Tells the host that something it asked for does not happen: by a line in the log and by the
/// signal VelmoraEvents::refused(). The signal is emitted on a later turn of the main loop, so that
/// a slot may call anything, whatever the caller is doing at the moment. Any thread.
class Refusal {
public:
    using Request = VelmoraEvents::Request;
    using Reason = VelmoraEvents::Reason;

    /// Writes the text to the log and emits the signal.
    static void report(Request request, Reason reason, const QString &text);
    /// Emits the signal only, for a caller that writes its own log line.
    static void signal(Request request, Reason reason, const QString &text);
    /// Reports that ads are removed.
    static void reportAdsRemoved(Request request);
};

} // namespace velmora
