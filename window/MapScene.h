// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "geo/CoordinateTransform.h"
#include "model/Model.h"

#include <QPolygonF>
#include <QRectF>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace refhost
{

/// An object's place on the map, in the system of its frame; y counts upwards.
struct PlacedObject
{
    int frame = 0;
    Numbers x; ///< one per vertex; NaN where a position has no place in the frame
    Numbers y;
    std::optional<QRectF> extent; ///< none when no vertex has a place
    QPolygonF outline; ///< grid surfaces: corners, half a cell beyond the nodes, from the origin along the columns
};

/// What can be drawn together: objects of one system, or of systems between which PROJ knows a way.
struct MapFrame
{
    QString crs;  ///< WKT; empty for objects without a system
    QString unit; ///< of positions: "m", "degrees", another name of the system's, or nothing when it is not known
    int objects = 0;
};

/// Puts the objects of a model into frames: one for all that have a place on the earth, in the first projected system
/// among them, and one for each local system.
class MapScene
{
public:
    /// The model outlives this.
    explicit MapScene(const Model& model);

    /// Takes in the objects that were added to the model, or all of them when objects have gone.
    void update();

    const std::vector<MapFrame>& frames() const { return m_frames; }
    /// One per object of the model, in its order.
    const std::vector<PlacedObject>& places() const { return m_places; }

private:
    struct System
    {
        bool onEarth = false; ///< PROJ knows a way to longitudes and latitudes
        bool degrees = false;
        std::unique_ptr<CoordinateTransform> way; ///< to the system of its frame; null when there is nothing to do
        int frame = -1;
    };

    QString chooseEarth();
    System& systemOf(const QString& crs);
    void enter(System& system, const QString& crs);
    void place(const ModelObject& object);

    const Model& m_model;
    QString m_earth; ///< the system in which objects on the earth are put together
    std::map<QString, System> m_systems;
    std::vector<MapFrame> m_frames;
    std::vector<PlacedObject> m_places;
};

} // namespace refhost
