// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <memory>
#include <mutex>
#include <vector>

namespace velmora {

/// Appends parts of the ad table to its file (AdTableFile) on the disk queue. Parts that arrive
/// before the queue's thread gets to them are written together. A part that could not be written is
/// tried again together with the next one. Main thread only.
class AdTableWriter : public std::enable_shared_from_this<AdTableWriter> {
public:
    explicit AdTableWriter(QString path) : m_path(std::move(path)) {}

    void write(const QJsonObject &part);
    /// Writes the whole table, which contains the parts that could not be written.
    void writeAll(const QJsonObject &table);

    /// True when there is no file and none is about to be written.
    bool isFileMissing();

private:
    /// Starts to write the parts, unless that is under way.
    void start();
    /// Writes until there are no parts left, on the disk queue's thread.
    void flush();

    const QString m_path;
    std::mutex m_mutex;
    std::vector<QJsonObject> m_parts; // not written yet
    bool m_isWriting = false;
};

} // namespace velmora
