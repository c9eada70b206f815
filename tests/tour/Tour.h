// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

namespace demo::tour {

class Scene;

/// Plays all scenes, each in a process of its own, with a common timeline.
class Tour {
public:
    /// How one scene is started. Starts with the same cache or config name share that folder, as
    /// successive starts of one host do.
    struct Start {
        QString scene;
        void (*play)(Scene &);
        QString cache;
        QString config;
        QString scale = {}; ///< pixel ratio; empty for 1
        QString language = "en";
    };

    /// All starts of the tour, in order.
    static const QList<Start> &starts();

    /// @param folder where the pictures and the timeline go
    explicit Tour(const QString &folder);

    /// @return whether every scene was as expected
    bool run();

private:
    bool prepareFolder();
    bool play(const Start &start);
    QProcessEnvironment environmentFor(const Start &start) const;

    QString m_folder;
    qint64 m_started; ///< on the clock of the timeline
    QTemporaryDir m_homes;
};

} // namespace demo::tour
