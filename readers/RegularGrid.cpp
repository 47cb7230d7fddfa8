// SPDX-License-Identifier: MIT
#include "readers/RegularGrid.h"

#include "geo/CoordinateSystems.h"
#include "readers/MeshBuilder.h"

#include <QFileInfo>

#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

void placeNodes(RegularGrid& grid)
{
    const GridGeometry& geometry = grid.geometry;
    const double turned = geometry.rotation * M_PI / 180.0;
    const double cosine = geometry.rotation == 0.0 ? 1.0 : std::cos(turned);
    const double sine = geometry.rotation == 0.0 ? 0.0 : std::sin(turned);
    grid.x.resize(grid.z.size());
    grid.y.resize(grid.z.size());
    std::size_t node = 0;
    for (int row = 0; row < geometry.rows; ++row) {
        for (int column = 0; column < geometry.columns; ++column, ++node) {
            const double along = column * geometry.stepX;
            const double across = row * geometry.stepY;
            grid.x[node] = geometry.originX + along * cosine - across * sine;
            grid.y[node] = geometry.originY + along * sine + across * cosine;
        }
    }
}

} // namespace

LoadNotes addGrid(Model& model, const QString& path, const LoadOptions& options, RegularGrid grid)
{
    LoadNotes notes;
    int beyond = 0;
    for (double& z : grid.z) {
        if (std::abs(z) >= beyondHeights) {
            z = std::numeric_limits<double>::quiet_NaN();
            ++beyond;
        }
    }
    if (beyond > 0)
        notes.append(QStringLiteral("%1: %2 values of 1e30 and beyond are taken as nodes without a value")
                         .arg(path)
                         .arg(beyond));

    if (grid.x.empty())
        placeNodes(grid);
    ModelObject object =
        newObject(path, options, ObjectType::GridSurfaces,
                  options.name.isEmpty() ? QFileInfo(path).completeBaseName() : options.name, QStringLiteral("Grids"));
    if (options.crs.isEmpty())
        object.crs = grid.crs;
    if (object.lengthUnit.isEmpty())
        object.lengthUnit = grid.unit;
    object.grid = grid.geometry;
    object.vertexAttributes = std::move(grid.attributes);
    setCoordinates(object, std::move(grid.x), std::move(grid.y), std::move(grid.z));
    model.add(std::move(object));
    return notes;
}

} // namespace kpFormats
