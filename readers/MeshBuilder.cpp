// SPDX-License-Identifier: MIT
#include "readers/MeshBuilder.h"

#include "geo/CoordinateSystems.h"
#include "model/CellCorners.h"
#include "readers/PolygonTriangles.h"

#include <cmath>
#include <limits>

namespace kpFormats
{

void MeshBuilder::readVertex(TextScanner& scanner)
{
    if (x.size() >= static_cast<std::size_t>(std::numeric_limits<int>::max()))
        scanner.fail(QStringLiteral("there are more vertices than a mesh can have"), QStringLiteral("split the file"));
    std::string_view word;
    for (std::vector<double>* axis : {&x, &y, &z}) {
        if (!scanner.nextWord(word))
            scanner.fail(QStringLiteral("a vertex needs three numbers"),
                         QStringLiteral("correct the line at its source"));
        axis->push_back(scanner.number(word));
    }
}

void MeshBuilder::addPolygon(const std::vector<int>& corners, const TextScanner& scanner)
{
    if (corners.size() > 2 && !appendTriangles(corners, x, y, z, triangles))
        scanner.fail(QStringLiteral("a face of %1 corners is not convex").arg(corners.size()),
                     QStringLiteral("split it into triangles at its source"));
}

ModelObject newObject(const QString& path, const LoadOptions& options, ObjectType type, const QString& name,
                      const QString& set)
{
    ModelObject object;
    object.type = options.type.value_or(type);
    object.name = name;
    object.set = options.set.isEmpty() ? set : options.set;
    // Without a colour of its own it gets one of the palette, by its place in the whole model, from the loader.
    object.color = QColor(options.color);
    object.crs = options.crs.isEmpty() ? QString() : wktOf(options.crs);
    object.lengthUnit = options.lengthUnit;
    object.source = path;
    return object;
}

void setCoordinates(ModelObject& object, std::vector<double> x, std::vector<double> y, std::vector<double> z)
{
    object.x = std::make_shared<const std::vector<double>>(std::move(x));
    object.y = std::make_shared<const std::vector<double>>(std::move(y));
    object.z = std::make_shared<const std::vector<double>>(std::move(z));
}

void setOutline(ModelObject& object, const CellGrid& grid)
{
    const auto columns = static_cast<std::size_t>(grid.columns);
    const auto rows = static_cast<std::size_t>(grid.rows);
    const std::size_t plane = 4 * columns * rows;
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    for (const bool base : {false, true}) {
        const std::size_t offset = base ? (2 * static_cast<std::size_t>(grid.layers) - 1) * plane : 0;
        for (std::size_t pillar = 0; pillar < (columns + 1) * (rows + 1); ++pillar) {
            const std::size_t column = pillar % (columns + 1);
            const std::size_t row = pillar / (columns + 1);
            // Up to four cells meet at a pillar, at different depths where there is a fault.
            double depth = std::numeric_limits<double>::quiet_NaN();
            for (const std::size_t i : {2 * column - 1, 2 * column}) {
                for (const std::size_t j : {2 * row - 1, 2 * row}) {
                    if (i >= 2 * columns || j >= 2 * rows)
                        continue;
                    const double corner = grid.zcorn[offset + j * 2 * columns + i];
                    depth = base ? std::fmax(depth, corner) : std::fmin(depth, corner);
                }
            }
            const auto position = pillarPosition(grid.coord.data() + 6 * pillar, depth);
            x.push_back(position[0]);
            y.push_back(position[1]);
            z.push_back(-depth);
        }
    }
    setCoordinates(object, std::move(x), std::move(y), std::move(z));
}

} // namespace kpFormats
