// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrExportSettings.h"
#include "model/ModelObject.h"

#include <ogr_core.h>

#include <vector>

namespace kpFormats
{

enum class OgrShape { Points, Lines, Polygons };

/// The objects of one geometry type: they go into one layer.
struct OgrLayer
{
    OgrShape shape = OgrShape::Points;
    bool hasZ = false;
    bool multi = false; ///< lines or polygons of which at least one has several parts
    std::vector<const ModelObject*> objects;

    OGRwkbGeometryType type() const;
};

/// Spreads objects over layers, in the order in which each geometry type is first met.
std::vector<OgrLayer> ogrLayers(const std::vector<const ModelObject*>& objects, const OgrExportSettings& settings,
                                bool heights);

/// Whether the object becomes polygons of three or four corners, one per triangle or grid cell.
bool asCells(const OgrLayer& layer, const ModelObject& object);
/// Features that the object makes.
qint64 featuresOf(const OgrLayer& layer, const ModelObject& object);
/// The parts of a line or polygon; all vertices as one where the object has none.
std::vector<Part> partsOf(const ModelObject& object);

} // namespace kpFormats
