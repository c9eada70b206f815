// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QRectF>
#include <QtGui/QColor>
#include <QtGui/QImage>

class QPainter;

namespace demo {

/// A drawn landscape: sky, sun, ridges one behind the other, water if wanted, and one motif.
struct Scenery {
    enum class Motif { Sailboat, Lighthouse, Pines, Lanterns, Dunes, Church };

    struct Ridge {
        QColor color;
        double height;    ///< of its middle line above the bottom, as a share of the picture's
        double amplitude; ///< of its hills, as a share of the picture's height
        double steepness; ///< from 0, rolling like dunes, to 1, jagged like rock
    };

    QColor skyTop;
    QColor skyBottom;
    QColor sun;
    double sunX = 0.7;  ///< share of the picture's width
    double sunY = 0.35; ///< share of its height, from the top
    QList<Ridge> ridges;
    QColor water; ///< invalid for no water
    Motif motif = Motif::Pines;
    int seed = 1; ///< varies the ridges

    void paint(QPainter &painter, const QRectF &frame) const;

    /// Paints the landscape into a new picture.
    QImage picture(const QSize &size) const;

private:
    void paintSky(QPainter &painter, const QRectF &frame) const;
    void paintRidge(QPainter &painter, const QRectF &frame, const Ridge &ridge, int index) const;
    void paintWater(QPainter &painter, const QRectF &frame) const;
    void paintMotif(QPainter &painter, const QRectF &frame) const;
    double ridgeLine(const Ridge &ridge, int index, double x) const;
};

} // namespace demo
