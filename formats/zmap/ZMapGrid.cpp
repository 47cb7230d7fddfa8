// SPDX-License-Identifier: MIT
#include "formats/zmap/ZMapGrid.h"

#include "export/GridNodes.h"

#include <cmath>

namespace kpFormats
{

ZMapGrid::ZMapGrid(const ModelObject& object, const ZMapExportSettings& settings, const QString& file)
    : m_object(object)
    , m_factors(object, settings.lengthUnit, settings.zIsElevation)
    , m_values(object, settings.attribute, m_factors, file)
{
    const QString kind = QStringLiteral("ZMap+ grid");
    // A reader takes the step from the limits.
    requireSteps(object, file, kind);
    requireUnrotated(object, file, kind);
    const GridGeometry& grid = *object.grid;
    m_northFirst = grid.stepY < 0.0;
    m_west = grid.originX * m_factors.flat;
    m_south = (grid.originY + (m_northFirst ? (grid.rows - 1) * grid.stepY : 0.0)) * m_factors.flat;
}

double ZMapGrid::stepX() const
{
    return m_object.grid->stepX * m_factors.flat;
}

double ZMapGrid::stepY() const
{
    return std::abs(m_object.grid->stepY) * m_factors.flat;
}

} // namespace kpFormats
