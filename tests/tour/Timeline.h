// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QFile>
#include <QtCore/QString>

namespace demo::tour {

/// The file in which the tour records every event: a line each with the milliseconds since the tour
/// began, the event's name and its object, separated by tabs. The processes of the tour append to
/// it one after the other.
class Timeline {
public:
    static inline const QString FileName = "timeline.txt";

    /// @param started start of the tour on the system's steady clock, milliseconds
    Timeline(const QString &folder, qint64 started);

    bool isOpen() const { return m_file.isOpen(); }
    void add(const QString &name, const QString &object = {});

    /// The time on the system's steady clock, milliseconds.
    static qint64 now();

private:
    QFile m_file;
    qint64 m_started;
};

} // namespace demo::tour
