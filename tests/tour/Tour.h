// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/TourOptions.h"

#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

namespace demo::tour {

/// Plays all scenes, each in a process of its own, and then checks their common timeline.
class Tour {
public:
    explicit Tour(const TourOptions &options);

    /// @return whether every scene and the timeline were as expected
    bool run();

private:
    /// How one scene is started. Scenes with the same cache or config name share that folder, as
    /// successive starts of one host do.
    struct Part {
        QString scene;
        QString cache;
        QString config;
        QString scale;    ///< pixel ratio; empty for 1
        QString language; ///< empty for English
    };

    bool prepareFolder();
    bool play(const Part &part);
    bool checkTimeline();
    QProcessEnvironment environmentFor(const Part &part) const;
    int nextPicture() const;

    TourOptions m_options;
    QTemporaryDir m_homes;
};

} // namespace demo::tour
