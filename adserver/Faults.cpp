// SPDX-License-Identifier: Apache-2.0
#include "adserver/Faults.h"

#include "adserver/PathPattern.h"

namespace velmora::adserver {

void Faults::set(const QString &pattern, const Fault &fault) {
    const std::lock_guard lock(m_mutex);
    removeLocked(pattern);
    m_entries.push_back({pattern, {fault, std::make_shared<std::atomic<bool>>(false)}});
}

bool Faults::setFromText(const QString &text) {
    const qsizetype equals = text.indexOf(QLatin1Char('='));
    const QString pattern = text.left(equals);
    if (equals < 0 || !(pattern.startsWith(QLatin1Char('/')) || pattern == QLatin1String("*")))
        return false;
    const auto fault = Fault::fromText(text.mid(equals + 1));
    if (fault)
        set(pattern, *fault);
    return fault.has_value();
}

void Faults::clear(const QString &pattern) {
    const std::lock_guard lock(m_mutex);
    removeLocked(pattern);
}

void Faults::clear() {
    const std::lock_guard lock(m_mutex);
    for (const Entry &entry : m_entries)
        *entry.active.cleared = true;
    m_entries.clear();
}

void Faults::removeLocked(const QString &pattern) {
    std::erase_if(m_entries, [&](const Entry &entry) {
        if (entry.pattern != pattern)
            return false;
        *entry.active.cleared = true;
        return true;
    });
}

Faults::Active Faults::take(const QString &path) {
    const std::lock_guard lock(m_mutex);
    Entry *best = nullptr;
    for (Entry &entry : m_entries) {
        if (entry.active.fault.remaining == 0 || !matchesPath(entry.pattern, path))
            continue;
        const bool isExact = !entry.pattern.endsWith(QLatin1Char('*'));
        if (!best || isExact || entry.pattern.size() > best->pattern.size())
            best = &entry;
        if (isExact)
            break;
    }
    if (!best)
        return {Fault(), std::make_shared<std::atomic<bool>>(false)};
    // A used-up entry is kept, because clear() must still end the requests that hang because of it.
    if (best->active.fault.remaining > 0)
        --best->active.fault.remaining;
    return best->active;
}

} // namespace velmora::adserver
