// SPDX-License-Identifier: MIT
#include "readers/MeshBuilder.h"

#include "geo/CoordinateSystems.h"
#include "readers/PolygonTriangles.h"

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

} // namespace kpFormats
