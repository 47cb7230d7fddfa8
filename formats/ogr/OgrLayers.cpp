// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrLayers.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

bool isSurface(const ModelObject& object)
{
    return object.type == ObjectType::GridSurfaces || object.type == ObjectType::MeshSurfaces;
}

OgrShape shapeOf(const ModelObject& object, const OgrExportSettings& settings)
{
    switch (object.type) {
    case ObjectType::Polylines:
    case ObjectType::Wells:
        return OgrShape::Lines;
    case ObjectType::Polygons:
        return OgrShape::Polygons;
    default:
        // A surface that has neither nodes in rows nor triangles is a set of points.
        return isSurface(object) && settings.surfaces == OgrExportSettings::Surfaces::Polygons
                       && (object.grid || !object.triangles.empty())
                   ? OgrShape::Polygons
                   : OgrShape::Points;
    }
}

/// Whether the object makes a line or polygon of several.
bool hasSeveral(const ModelObject& object)
{
    return std::count_if(object.parts.begin(), object.parts.end(),
                         [&object](const Part& part) { return object.type != ObjectType::Polygons || !part.hole; })
           > 1;
}

} // namespace

OGRwkbGeometryType OgrLayer::type() const
{
    OGRwkbGeometryType flat = wkbPoint;
    if (shape == OgrShape::Lines)
        flat = multi ? wkbMultiLineString : wkbLineString;
    else if (shape == OgrShape::Polygons)
        flat = multi ? wkbMultiPolygon : wkbPolygon;
    return hasZ ? static_cast<OGRwkbGeometryType>(wkbSetZ(flat)) : flat;
}

std::vector<OgrLayer> ogrLayers(const std::vector<const ModelObject*>& objects, const OgrExportSettings& settings,
                                bool heights)
{
    std::vector<OgrLayer> layers;
    for (const ModelObject* object : objects) {
        const OgrShape shape = shapeOf(*object, settings);
        const bool hasZ = heights && object->hasZ;
        auto layer = std::find_if(layers.begin(), layers.end(),
                                  [&](const OgrLayer& entry) { return entry.shape == shape && entry.hasZ == hasZ; });
        if (layer == layers.end()) {
            layers.emplace_back();
            layer = layers.end() - 1;
            layer->shape = shape;
            layer->hasZ = hasZ;
        }
        layer->multi = layer->multi || (shape != OgrShape::Points && !asCells(*layer, *object) && hasSeveral(*object));
        layer->objects.push_back(object);
    }
    return layers;
}

bool asCells(const OgrLayer& layer, const ModelObject& object)
{
    return layer.shape == OgrShape::Polygons && isSurface(object);
}

qint64 featuresOf(const OgrLayer& layer, const ModelObject& object)
{
    if (layer.shape == OgrShape::Points)
        return object.vertexCount();
    if (!asCells(layer, object))
        return 1;
    if (object.grid)
        return std::max<qint64>(0, object.grid->columns - 1) * std::max<qint64>(0, object.grid->rows - 1);
    return static_cast<qint64>(object.triangles.size());
}

std::vector<Part> partsOf(const ModelObject& object)
{
    if (!object.parts.empty())
        return object.parts;
    return {{0, object.vertexCount(), object.type == ObjectType::Polygons, false}};
}

} // namespace kpFormats
