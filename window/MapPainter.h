// SPDX-License-Identifier: MIT
#pragma once

#include "window/MapScene.h"
#include "window/MapViewport.h"

#include <QColor>

class QPainter;

namespace refhost
{

/// Draws objects on the map in their colours, selected ones in orange.
class MapPainter
{
public:
    /// Both outlive this.
    MapPainter(QPainter& painter, const MapViewport& viewport);

    void draw(const ModelObject& object, const PlacedObject& place, bool selected);
    /// \a unit of the positions, as in MapFrame.
    void drawScaleBar(const QString& unit);

    static QColor paper() { return {250, 250, 247}; }

private:
    void drawGrid(const ModelObject& object, const PlacedObject& place, bool selected);
    void drawPoints(const PlacedObject& place, const QColor& colour, double radius);
    void drawLines(const ModelObject& object, const PlacedObject& place, const QColor& colour, bool selected);

    QPainter& m_painter;
    const MapViewport& m_viewport;
};

} // namespace refhost
