// SPDX-License-Identifier: MIT
#include "export/GridNodes.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

/// How far the node farthest from the origin is from where an unrotated grid has it, in steps.
double displacement(const GridGeometry& grid)
{
    const double angle = grid.rotation * M_PI / 180.0;
    const double width = (grid.columns - 1) * std::abs(grid.stepX);
    const double height = (grid.rows - 1) * std::abs(grid.stepY);
    const double chord = 2.0 * std::abs(std::sin(angle / 2.0));
    return chord * std::hypot(width, height) / std::min(std::abs(grid.stepX), std::abs(grid.stepY));
}

bool isStep(double step)
{
    return std::isfinite(step) && step != 0.0;
}

} // namespace

void requireNodes(const ModelObject& object, const QString& file)
{
    const bool whole = object.grid && object.grid->columns > 0 && object.grid->rows > 0
                       && object.vertexCount() == static_cast<qint64>(object.grid->columns) * object.grid->rows;
    if (!whole)
        throw ExportError(file, QStringLiteral("the grid %1 is empty").arg(object.name),
                          QStringLiteral("choose a grid with nodes"));
    if (!isStep(object.grid->stepX) || !isStep(object.grid->stepY))
        throw ExportError(file, QStringLiteral("the grid %1 has no distance between its nodes").arg(object.name),
                          QStringLiteral("check the file that it comes from"));
}

void requireSteps(const ModelObject& object, const QString& file, const QString& fileKind)
{
    if (object.grid->columns < 2 || object.grid->rows < 2)
        throw ExportError(file,
                          QStringLiteral("the grid %1 has a single row or column, and a %2 needs two of both")
                              .arg(object.name, fileKind),
                          QStringLiteral("export it as ASCII or GOCAD"));
}

void requireUnrotated(const ModelObject& object, const QString& file, const QString& fileKind)
{
    if (displacement(*object.grid) > mostTurn)
        throw ExportError(
            file,
            QStringLiteral("the grid %1 is rotated by %2 degrees, and a %3 cannot be")
                .arg(object.name)
                .arg(object.grid->rotation)
                .arg(fileKind),
            QStringLiteral("export it as GeoTIFF, GOCAD or ASCII, or resample it to a grid parallel to the axes"));
}

std::optional<NumberColumn> nodeAttribute(const ModelObject& object, const QString& name, const QString& file)
{
    if (name.isEmpty())
        return std::nullopt;
    QStringList names;
    for (const AttributeColumn& column : object.vertexAttributes) {
        const bool number = column.kind != AttributeKind::Text && column.kind != AttributeKind::Color;
        if (number && column.name == name)
            return NumberColumn(column);
        if (number)
            names.append(column.name);
    }
    throw ExportError(file, QStringLiteral("the grid %1 has no numeric attribute \"%2\"").arg(object.name, name),
                      names.isEmpty() ? QStringLiteral("leave the attribute empty to write heights")
                                      : QStringLiteral("it has: %1").arg(names.join(QStringLiteral(", "))));
}

void noteOtherAttributes(const ModelObject& object, const QString& attribute, Findings& findings)
{
    const std::size_t attributes =
        object.vertexAttributes.size() + object.objectAttributes.size() - (attribute.isEmpty() ? 0 : 1);
    findings.note(finding::attributesOfGridLeftOut, object, static_cast<qint64>(attributes),
                  QStringLiteral("choose one with the setting \"attribute\""));
}

} // namespace kpFormats
