// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/SplashTimes.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace demo {

/// What the command line asked for.
struct Options {
    QString campaign;       ///< campaign folder of the ad server
    QString tour;           ///< folder that the tour fills; empty: no tour
    QString scene;          ///< one scene of the tour, played in this process
    int firstPicture = 1;   ///< number of the scene's first picture
    qint64 tourStarted = 0; ///< on the system's steady clock, milliseconds
    SplashTimes times;

    bool isTour() const { return !tour.isEmpty() && scene.isEmpty(); }
    bool isScene() const { return !scene.isEmpty(); }

    /// Reads the arguments, the program's name first. Ends the process for --help and, with a
    /// word on stderr, for arguments that make no sense.
    static Options fromArguments(const QStringList &arguments);

    /// The arguments that make a child process play one scene.
    QStringList forScene(const QString &name, int picture, qint64 started) const;
};

} // namespace demo
