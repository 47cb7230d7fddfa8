// SPDX-License-Identifier: MIT
#include "formats/cellcenters/CellTable.h"

#include "export/CommonFindings.h"
#include "export/SafeNames.h"
#include "export/WrittenCells.h"
#include "model/CellCorners.h"

namespace kpFormats
{

CellTable::CellTable(const ModelObject& object, const ExportSelection& selection,
                     const CellCentersExportSettings& settings, const QString& file, Findings& findings)
    : m_object(object)
    , m_factors(object, settings.lengthUnit, settings.zIsElevation)
    , m_cells(writtenCells(object, settings.inactiveCells, file, findings))
    , m_properties(cellColumns(object, selection, findings))
    , m_indexNames({QStringLiteral("i"), QStringLiteral("j"), QStringLiteral("k")})
    , m_heightName(settings.zIsElevation ? QStringLiteral("z") : QStringLiteral("depth"))
{
    if (settings.inactiveCells)
        m_indexNames.append(QStringLiteral("active"));
    UniqueNames names;
    for (const QString& name : m_indexNames + QStringList{QStringLiteral("x"), QStringLiteral("y"), m_heightName})
        names.take(name);
    for (const NumberColumn& property : m_properties) {
        // Whoever reads the table cuts blanks off.
        m_propertyNames.append(names.take(property.name().simplified()));
        if (m_propertyNames.back() != property.name())
            findings.note(finding::renamed, object, 1,
                          QStringLiteral("attribute %1 is written as %2").arg(property.name(), m_propertyNames.back()));
    }
    chooseDecimals(settings.decimals);
}

void CellTable::chooseDecimals(int chosen)
{
    constexpr int usual = 4;
    constexpr int usualOfDegrees = 8;
    DecimalsNeed flat;
    DecimalsNeed heights;
    for (const qint64 cell : m_cells) {
        const std::array<double, 3> place = centre(cell);
        flat.add(place[0]);
        flat.add(place[1]);
        heights.add(place[2]);
    }
    const bool degrees = m_factors.flatUnit == QLatin1String("degrees");
    const bool automatic = chosen == automaticDecimals;
    m_flatDecimals = automatic ? flat.decimals(degrees ? usualOfDegrees : usual, false) : chosen;
    m_heightDecimals = automatic ? heights.decimals(usual, false) : chosen;
}

std::array<double, 3> CellTable::centre(qint64 cell) const
{
    const std::array<double, 3> place = cellCentre(*m_object.cells, cell);
    return {place[0] * m_factors.flat, place[1] * m_factors.flat, -place[2] * m_factors.height};
}

std::vector<int> CellTable::indices(qint64 cell) const
{
    const CellIndex at = cellIndex(*m_object.cells, cell);
    std::vector<int> numbers{at.column + 1, at.row + 1, at.layer + 1};
    if (m_indexNames.size() > 3)
        numbers.push_back(isActive(*m_object.cells, cell) ? 1 : 0);
    return numbers;
}

} // namespace kpFormats
