// SPDX-License-Identifier: MIT
#include "formats/zmap/ZMapGrid.h"

#include "export/GridNodes.h"

#include <cmath>

namespace kpFormats
{

ZMapGrid::ZMapGrid(const ModelObject& object, const ZMapExportSettings& settings, const QString& file)
    : m_object(object)
    , m_factor(unitFactor(object.lengthUnit, settings.lengthUnit))
{
    requireNodes(object, file);
    const QString kind = QStringLiteral("ZMap+ grid");
    requireSteps(object, file, kind);
    requireUnrotated(object, file, kind);
    m_attribute = nodeAttribute(object, settings.attribute, file);
    const GridGeometry& grid = *object.grid;
    // Only heights are lengths and have a direction.
    m_valueFactor = m_attribute ? 1.0 : (settings.zIsElevation ? m_factor : -m_factor);
    m_northFirst = grid.stepY < 0.0;
    m_west = grid.originX * m_factor;
    m_south = (grid.originY + (m_northFirst ? (grid.rows - 1) * grid.stepY : 0.0)) * m_factor;
}

double ZMapGrid::stepX() const
{
    return m_object.grid->stepX * m_factor;
}

double ZMapGrid::stepY() const
{
    return std::abs(m_object.grid->stepY) * m_factor;
}

} // namespace kpFormats
