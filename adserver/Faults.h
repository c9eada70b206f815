// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/Fault.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace velmora::adserver {

/// The faults in force, by path. All members may be called from any thread, also while the server
/// runs. A new fault applies from the next request on.
class Faults {
public:
    /// The fault of one request. `cleared` becomes true when the fault is cleared or replaced,
    /// which ends the request's delay or hang.
    struct Active {
        Fault fault;
        std::shared_ptr<std::atomic<bool>> cleared;
    };

    /// Sets the fault for a path or a pattern (see matchesPath()) and replaces an earlier one for
    /// the same pattern. When several match a request, the exact path applies, else the longest
    /// pattern.
    void set(const QString &pattern, const Fault &fault);

    /// Sets a fault from "PATH=KIND[:ARGUMENT]" (see Fault::fromText). False, and nothing set,
    /// when the text is malformed or the path begins neither with '/' nor with '*'.
    bool setFromText(const QString &text);

    /// Removes the fault of exactly this pattern. Requests that hang or wait because of it continue
    /// within about 20 ms.
    void clear(const QString &pattern);

    /// Removes all faults, as clear() does.
    void clear();

    /// The fault for a request to `path`, or Kind::None. Counts as one of the fault's requests.
    /// Called by the server.
    Active take(const QString &path);

private:
    struct Entry {
        QString pattern;
        Active active;
    };

    void removeLocked(const QString &pattern);

    std::mutex m_mutex;
    std::vector<Entry> m_entries;
};

} // namespace velmora::adserver
