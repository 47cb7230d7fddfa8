// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace refhost
{

/// The piece of the map that a widget shows, north up.
struct MapViewport
{
    double centreX = 0.0;
    double centreY = 0.0;
    double scale = 1.0; ///< pixels per map unit
    QSizeF size;        ///< pixels

    QPointF toScreen(double x, double y) const
    {
        return {size.width() / 2 + (x - centreX) * scale, size.height() / 2 - (y - centreY) * scale};
    }
    QPointF toScreen(const QPointF& place) const { return toScreen(place.x(), place.y()); }
    QPointF toMap(const QPointF& pixel) const
    {
        return {centreX + (pixel.x() - size.width() / 2) / scale, centreY - (pixel.y() - size.height() / 2) / scale};
    }
    /// The map under a rectangle of pixels; y counts upwards.
    QRectF toMap(const QRectF& pixels) const { return QRectF(toMap(pixels.bottomLeft()), toMap(pixels.topRight())); }
};

} // namespace refhost
