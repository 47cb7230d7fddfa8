// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace kpFormats
{

/// The kinds of object that the model holds, named as the export wizard lists them.
enum class ObjectType {
    Pins,
    Polygons,
    Polylines,
    Posts,
    Wells,
    FractureSets,
    Images,
    Labels,
    StratigraphyColumn,
    VertexClouds,
    GridSurfaces,
    MeshSurfaces,
    GeoCellularVolumes,
    TetraVolumes,
    CrossSections
};

/// Stable key of a type, such as "grid_surface": used by model files, the command line and the savers' type sets.
KPFORMATS_EXPORT std::string typeKey(ObjectType type);
/// The type with that key, if there is one.
KPFORMATS_EXPORT std::optional<ObjectType> typeFromKey(const std::string& key);
/// Name shown to the user, such as "Grid Surfaces".
KPFORMATS_EXPORT QString typeName(ObjectType type);
/// Every type, in the order of the enumeration.
KPFORMATS_EXPORT const std::vector<ObjectType>& allObjectTypes();
/// Those whose objects are points, lines, areas or surfaces with positions of their own.
KPFORMATS_EXPORT const std::vector<ObjectType>& positionedObjectTypes();

} // namespace kpFormats
