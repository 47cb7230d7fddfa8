// SPDX-License-Identifier: MIT
#pragma once

#include "model/AttributeColumn.h"
#include "model/CrossSection.h"
#include "model/ObjectType.h"

#include <QColor>
#include <QString>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace kpFormats
{

using Numbers = std::shared_ptr<const std::vector<double>>;

/// A run of consecutive vertices that belong together: a line, a ring, a well path, a set of points.
struct Part
{
    int first = 0;       ///< index of the first vertex
    int count = 0;       ///< number of vertices; a closed ring repeats its first vertex at the end
    bool closed = false; ///< ring of a polygon or closed line
    bool hole = false;   ///< inner ring of the polygon before it
};

/// A regular grid of nodes; node (column, row) is vertex row * columns + column. Row 0 lies at the origin.
struct GridGeometry
{
    int columns = 0;
    int rows = 0;
    double originX = 0.0; ///< position of node (0, 0)
    double originY = 0.0;
    double stepX = 1.0;    ///< distance of neighbouring columns, in coordinate units
    double stepY = 1.0;    ///< distance of neighbouring rows; positive: north of the row before
    double rotation = 0.0; ///< degrees, counter-clockwise, about the origin
};

/// Corner-point cells, laid out as in Eclipse: coord holds 6 numbers per pillar, zcorn 8 per cell, z positive down,
/// columns fastest. Lengths are in the object's unit, x and y on the map.
struct CellGrid
{
    int columns = 0;
    int rows = 0;
    int layers = 0;
    std::vector<double> coord;
    std::vector<double> zcorn;
    std::vector<int> active; ///< one flag per cell; empty when all are active
    std::vector<AttributeColumn> cellAttributes;
};

/// One object of the model. Heights are elevations (z up) in its length unit; x and y are in the unit of its coordinate
/// system, which is the same length unit unless the system counts in degrees.
/// Blocks of numbers are shared, never copied, when an object is handed to a writer.
struct ModelObject
{
    int id = 0;
    QString name;
    ObjectType type = ObjectType::VertexClouds;
    QColor color = QColor(Qt::darkGray);
    bool colorIsOwn = true; ///< false where the source has none and the loader gave it one
    QString set;            ///< name of the set (layer, group) that the object belongs to; may be empty
    QString crs;            ///< coordinate system as WKT; empty when unknown
    QString lengthUnit = QStringLiteral("m"); ///< "m", "ft", "ftUS", "km"
    QString source;                           ///< file that the object came from, for messages

    Numbers x; ///< one per vertex; never null in a loaded object
    Numbers y;
    Numbers z;        ///< 0 where the source is flat; NaN marks a vertex or a node without a height
    bool hasZ = true; ///< false when no vertex of the source has a height

    std::vector<Part> parts;                     ///< empty for plain points
    std::vector<std::array<int, 3>> triangles;   ///< mesh surfaces: vertex indices
    std::optional<GridGeometry> grid;            ///< grid surfaces
    std::shared_ptr<const CellGrid> cells;       ///< geocellular volumes
    std::shared_ptr<const CrossSection> section; ///< cross-sections; their vertices are the trace on the map
    std::vector<AttributeColumn> vertexAttributes;
    std::vector<ObjectAttribute> objectAttributes;

    int vertexCount() const { return x ? static_cast<int>(x->size()) : 0; }
    /// Vertices and cells.
    qint64 rowCount() const
    {
        return vertexCount() + (cells ? qint64(cells->columns) * cells->rows * cells->layers : 0);
    }
    /// How much there is to write, for progress: vertices, points drawn on a section and cells.
    double weight() const
    {
        double drawn = 0;
        if (section) {
            for (const SectionSegment& segment : section->segments)
                drawn += static_cast<double>(segment.z.size());
        }
        return 1.0 + vertexCount() + drawn + (cells ? 8.0 * cells->columns * cells->rows * cells->layers : 0.0);
    }
};

/// Of all of them together.
inline double weightOf(const std::vector<const ModelObject*>& objects)
{
    double weight = 0;
    for (const ModelObject* object : objects)
        weight += object->weight();
    return weight;
}

} // namespace kpFormats
