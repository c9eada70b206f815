// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QFile>
#include <QtCore/QString>

namespace demo {

/// The tour's record: a line for each event with its time, name and object, tabs between.
/// Several processes may write to it one after the other.
class Timeline {
public:
    static const QString FileName;

    // What scenes note beside the notifications.
    static const QString Scene;       ///< a scene begins
    static const QString Delay;       ///< registration of the first window; seconds until ready
    static const QString Ready;       ///< ads are ready
    static const QString LoadTime;    ///< seconds of the start screen, from now on
    static const QString CloseButton; ///< the close button is there
    static const QString Away;        ///< the reader turns to a window without splash screen
    static const QString Back;        ///< the reader comes back

    /// @param started beginning of the tour on the system's steady clock, milliseconds
    Timeline(const QString &folder, qint64 started);

    bool isOpen() const { return m_file.isOpen(); }
    void add(const QString &name, const QString &object = {});

    /// The system's steady clock, milliseconds.
    static qint64 now();

private:
    QFile m_file;
    qint64 m_started;
};

} // namespace demo
