// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QRectF>
#include <QtGui/QColor>
#include <QtGui/QImage>

class QPainter;

namespace demo {

/// A drawn landscape: sky, sun, ridges one behind the other, perhaps water, and one small thing
/// that tells the place.
struct Scenery {
    enum class Motif { Sailboat, Lighthouse, Pines, Lanterns, Dunes, Church };

    struct Ridge {
        QColor color;
        double height;    ///< of its middle line above the bottom, 0 to 1 of the picture
        double amplitude; ///< of its hills, 0 to 1 of the picture
        double steepness; ///< 0 rolls like dunes, 1 is jagged like rock
    };

    QColor skyTop;
    QColor skyBottom;
    QColor sun;
    double sunX = 0.7;
    double sunY = 0.35;
    QList<Ridge> ridges;
    QColor water; ///< invalid: no water
    Motif motif = Motif::Pines;
    int seed = 1;

    void paint(QPainter &painter, const QRectF &frame) const;

    /// The landscape as a picture of its own.
    QImage picture(const QSize &size) const;

private:
    void paintSky(QPainter &painter, const QRectF &frame) const;
    void paintRidge(QPainter &painter, const QRectF &frame, const Ridge &ridge, int index) const;
    void paintWater(QPainter &painter, const QRectF &frame) const;
    void paintMotif(QPainter &painter, const QRectF &frame) const;
    double ridgeLine(const Ridge &ridge, int index, double x) const;
};

} // namespace demo
