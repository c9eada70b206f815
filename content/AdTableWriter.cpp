// SPDX-License-Identifier: Apache-2.0
#include "AdTableWriter.h"

#include "AdTableFile.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"

#include <Velmora/Support.h>

#include <QtCore/QFileInfo>

#include <algorithm>
#include <iterator>
#include <utility>

namespace velmora {

void AdTableWriter::write(const QJsonObject &part) {
    {
        const std::lock_guard lock(m_mutex);
        m_parts.push_back(part);
    }
    start();
}

void AdTableWriter::writeAll(const QJsonObject &table) {
    {
        const std::lock_guard lock(m_mutex);
        m_parts = {table};
    }
    start();
}

bool AdTableWriter::isFileMissing() {
    const std::lock_guard lock(m_mutex);
    return !m_isWriting && !QFileInfo::exists(m_path);
}

void AdTableWriter::start() {
    {
        const std::lock_guard lock(m_mutex);
        if (std::exchange(m_isWriting, true))
            return;
    }
    ProcessRoot::get<DiskQueue>().run([self = shared_from_this()] { self->flush(); });
}

void AdTableWriter::flush() {
    std::unique_lock lock(m_mutex);
    while (!m_parts.empty()) {
        auto parts = std::exchange(m_parts, {});
        lock.unlock();
        const size_t written = AdTableFile::append(m_path, parts);
        lock.lock();
        if (written == parts.size())
            continue;
        LOG(QStringLiteral("the ad table could not be written to %1").arg(m_path));
        parts.erase(parts.begin(), parts.begin() + qsizetype(written));
        std::ranges::move(m_parts, std::back_inserter(parts));
        m_parts = std::move(parts);
        break;
    }
    m_isWriting = false;
}

} // namespace velmora
