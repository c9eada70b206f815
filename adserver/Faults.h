// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/Fault.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace velmora::adserver {

/// The faults in force, by path. All members may be called from any thread, also while the server
/// runs; a change holds from the next request on.
class Faults {
public:
    /// A fault as handed to one request. `cleared` turns true when the fault it came from is
    /// cleared or replaced, which ends its delay or hang.
    struct Active {
        Fault fault;
        std::shared_ptr<std::atomic<bool>> cleared;
    };

    /// Sets the fault for a path or, with a '*' at the end, for all paths that begin so
    /// (see matchesPath()); replaces the fault set before for the same pattern. Where several
    /// patterns fit a request the exact path wins, then the longest.
    void set(const QString &pattern, const Fault &fault);

    /// Sets a fault from "PATH=KIND[:ARGUMENT]" (see Fault::fromText). False, and nothing set,
    /// when the text is malformed or the path begins neither with '/' nor with '*'.
    bool setFromText(const QString &text);

    /// Removes the fault set for exactly this pattern. Requests that hang or wait because of it
    /// are answered normally within some 20 ms.
    void clear(const QString &pattern);

    /// Removes all faults, as clear() does.
    void clear();

    /// The fault for a request to `path`, counted as used; Kind::None when there is none. For the
    /// server.
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
