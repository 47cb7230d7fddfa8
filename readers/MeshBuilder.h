// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"
#include "readers/TextScanner.h"

#include <array>
#include <vector>

namespace kpFormats
{

/// Vertices and triangles of a mesh while a file is read.
struct KPFORMATS_EXPORT MeshBuilder
{
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    std::vector<std::array<int, 3>> triangles;

    int vertexCount() const { return static_cast<int>(x.size()); }
    /// The next three words of the line as a vertex. \throws LoadError
    void readVertex(TextScanner& scanner);
    /// A polygon as triangles that cover it once. \throws LoadError naming the scanner's line
    void addPolygon(const std::vector<int>& corners, const TextScanner& scanner);
};

/// An object as the options ask for, without its geometry.
KPFORMATS_EXPORT ModelObject newObject(const QString& path, const LoadOptions& options, ObjectType type,
                                       const QString& name, const QString& set);
/// Moves the coordinates into the object.
KPFORMATS_EXPORT void setCoordinates(ModelObject& object, std::vector<double> x, std::vector<double> y,
                                     std::vector<double> z);
/// Gives a volume the tops and bases of its pillars as vertices.
KPFORMATS_EXPORT void setOutline(ModelObject& object, const CellGrid& grid);

} // namespace kpFormats
