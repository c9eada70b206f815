// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Options.h"

#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

namespace demo {

/// Plays all scenes, each in a process of its own, and leaves their pictures and the timeline in
/// one folder.
class Tour {
public:
    explicit Tour(const Options &options);

    /// @return whether everything that the scenes expect has happened
    bool run();

private:
    struct Part {
        QString scene;
        QString cache;  ///< the name of a cache folder, shared by those who name it
        QString config; ///< likewise for the settings
        QString scale;
        QString language;
    };

    bool prepareFolder();
    bool play(const Part &part);
    bool checkTimeline();
    QProcessEnvironment environmentFor(const Part &part) const;
    int nextPicture() const;

    Options m_options;
    QTemporaryDir m_homes;
    qint64 m_started;
};

} // namespace demo
