// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace demo::tour {

/// The tour's command line. The tour starts itself once for each scene, with the last three
/// options set.
struct TourOptions {
    QString folder;       ///< where pictures and timeline go
    QString campaign;     ///< campaign folder of the ad server
    QString scene;        ///< the scene to play in this process; empty in the tour's own process
    int firstPicture = 1; ///< number of the scene's first picture
    qint64 started = 0;   ///< start of the tour on the system's steady clock, milliseconds

    bool isScene() const { return !scene.isEmpty(); }

    /// Reads the arguments, the program's name first. Ends the process for --help and, with a
    /// message on stderr, for wrong arguments.
    static TourOptions fromArguments(const QStringList &arguments);

    /// The arguments, without the program's name, that fromArguments() turns into this.
    QStringList arguments() const;
};

} // namespace demo::tour
