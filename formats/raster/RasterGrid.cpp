// SPDX-License-Identifier: MIT
#include "formats/raster/RasterGrid.h"

#include "export/ExportError.h"
#include "export/GridNodes.h"

#include <cmath>

namespace kpFormats
{

namespace
{

void requireHoldable(const ModelObject& object, const RasterTraits& able, const QString& file)
{
    requireNodes(object, file);
    if (able.stepsByExtent)
        requireSteps(object, file, able.fileKind);
    if (!able.rotation)
        requireUnrotated(object, file, able.fileKind);
    const GridGeometry& grid = *object.grid;
    const int longest = std::max(grid.columns, grid.rows);
    const double difference = std::abs(std::abs(grid.stepX) - std::abs(grid.stepY));
    if (able.squareCells && difference * longest > mostTurn * std::abs(grid.stepX))
        throw ExportError(file,
                          QStringLiteral("the grid %1 has cells of %2 x %3, and those of a %4 are square")
                              .arg(object.name)
                              .arg(std::abs(grid.stepX))
                              .arg(std::abs(grid.stepY))
                              .arg(able.fileKind),
                          QStringLiteral("export it as GeoTIFF or Surfer 7, or resample it to square cells"));
    if (longest > able.mostNodes)
        throw ExportError(file,
                          QStringLiteral("the grid %1 has %2 x %3 nodes, and a %4 holds %5 along a side")
                              .arg(object.name)
                              .arg(grid.columns)
                              .arg(grid.rows)
                              .arg(able.fileKind)
                              .arg(able.mostNodes),
                          QStringLiteral("export it as GeoTIFF or Surfer 7"));
}

} // namespace

RasterGrid::RasterGrid(const ModelObject& object, const RasterTraits& traits, const RasterExportSettings& settings,
                       const ExportSelection& selection, const QString& file, Findings& findings)
    : m_object(object)
{
    requireHoldable(object, traits, file);
    const double factor = unitFactor(object.lengthUnit, settings.lengthUnit);
    m_heightFactor = settings.zIsElevation ? factor : -factor;
    m_northFirst = object.grid->stepY < 0.0;
    m_westFirst = object.grid->stepX > 0.0;
    m_angle = traits.rotation ? object.grid->rotation * M_PI / 180.0 : 0.0;
    std::optional<NumberColumn> chosen = nodeAttribute(object, traits.bands ? QString() : settings.attribute, file);
    if (chosen) {
        m_bands.push_back({chosen->name(), chosen->unit(), std::move(chosen)});
        return;
    }
    m_bands.push_back({settings.zIsElevation ? QStringLiteral("elevation") : QStringLiteral("depth"),
                       writtenUnit(object.lengthUnit, settings.lengthUnit), std::nullopt});
    if (!traits.bands)
        return;
    for (NumberColumn& column : numberColumns(object, selection, findings)) {
        const QString name = column.name();
        const QString unit = column.unit();
        m_bands.push_back({name, unit, std::move(column)});
    }
}

std::array<double, 6> RasterGrid::transform() const
{
    const GridGeometry& grid = *m_object.grid;
    const double cosine = m_angle == 0.0 ? 1.0 : std::cos(m_angle);
    const double sine = m_angle == 0.0 ? 0.0 : std::sin(m_angle);
    // Steps of the file's columns and lines, and the model's column and row where they start.
    const double acrossStep = std::abs(grid.stepX);
    const double downStep = -std::abs(grid.stepY);
    const double across = m_westFirst ? 0.0 : (grid.columns - 1) * grid.stepX;
    const double up = m_northFirst ? 0.0 : (grid.rows - 1) * grid.stepY;
    const double x = grid.originX + across * cosine - up * sine;
    const double y = grid.originY + across * sine + up * cosine;
    const double t[] = {acrossStep * cosine, 0.0 - downStep * sine, acrossStep * sine, downStep * cosine};
    return {x - 0.5 * (t[0] + t[1]), t[0], t[1], y - 0.5 * (t[2] + t[3]), t[2], t[3]};
}

} // namespace kpFormats
