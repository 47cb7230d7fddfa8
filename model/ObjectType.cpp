// SPDX-License-Identifier: MIT
#include "model/ObjectType.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

struct TypeNames
{
    ObjectType type;
    const char* key;
    const char* name;
};

constexpr TypeNames typeTable[] = {
    {ObjectType::Pins, "pin", "Pins"},
    {ObjectType::Polygons, "polygon", "Polygons"},
    {ObjectType::Polylines, "polyline", "Polylines"},
    {ObjectType::Posts, "post", "Posts"},
    {ObjectType::Wells, "well", "Wells"},
    {ObjectType::FractureSets, "fracture_set", "3DKelvo Fracture Sets"},
    {ObjectType::Images, "image", "Images"},
    {ObjectType::Labels, "label", "Labels"},
    {ObjectType::StratigraphyColumn, "stratigraphy_column", "Stratigraphy Column"},
    {ObjectType::VertexClouds, "vertex_cloud", "Vertex Clouds"},
    {ObjectType::GridSurfaces, "grid_surface", "Grid Surfaces"},
    {ObjectType::MeshSurfaces, "mesh_surface", "Mesh Surfaces"},
    {ObjectType::GeoCellularVolumes, "geocellular_volume", "GeoCellular Volumes"},
    {ObjectType::TetraVolumes, "tetra_volume", "Tetra Volumes"},
    {ObjectType::CrossSections, "cross_section", "Cross Sections"},
};

const TypeNames& namesOf(ObjectType type)
{
    return *std::find_if(std::begin(typeTable), std::end(typeTable),
                         [type](const TypeNames& entry) { return entry.type == type; });
}

} // namespace

std::string typeKey(ObjectType type)
{
    return namesOf(type).key;
}

std::optional<ObjectType> typeFromKey(const std::string& key)
{
    for (const TypeNames& entry : typeTable) {
        if (key == entry.key)
            return entry.type;
    }
    return std::nullopt;
}

QString typeName(ObjectType type)
{
    return QString::fromLatin1(namesOf(type).name);
}

const std::vector<ObjectType>& allObjectTypes()
{
    static const std::vector<ObjectType> types = [] {
        std::vector<ObjectType> all;
        for (const TypeNames& entry : typeTable)
            all.push_back(entry.type);
        return all;
    }();
    return types;
}

const std::vector<ObjectType>& positionedObjectTypes()
{
    static const std::vector<ObjectType> types = {
        ObjectType::Pins,         ObjectType::Polygons,     ObjectType::Polylines,
        ObjectType::Posts,        ObjectType::Wells,        ObjectType::Labels,
        ObjectType::VertexClouds, ObjectType::GridSurfaces, ObjectType::MeshSurfaces};
    return types;
}

} // namespace kpFormats
