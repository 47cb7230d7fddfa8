// SPDX-License-Identifier: MIT
#include "export/WrittenCells.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "model/CellCorners.h"

#include <cmath>

namespace kpFormats
{

namespace
{

bool hasPlace(const CellGrid& grid, qint64 cell)
{
    const CellIndex at = cellIndex(grid, cell);
    for (const int low : {0, 1}) {
        for (const int back : {0, 1}) {
            for (const int right : {0, 1}) {
                const std::array<double, 3> place = cornerPosition(grid, at, right, back, low);
                if (!std::isfinite(place[0]) || !std::isfinite(place[1]) || !std::isfinite(place[2]))
                    return false;
            }
        }
    }
    return true;
}

} // namespace

std::vector<qint64> writtenCells(const CellGrid& grid, bool inactiveCells)
{
    std::vector<qint64> cells;
    const qint64 count = cellCount(grid);
    for (qint64 cell = 0; cell < count; ++cell) {
        if ((inactiveCells || isActive(grid, cell)) && hasPlace(grid, cell))
            cells.push_back(cell);
    }
    return cells;
}

std::vector<qint64> writtenCells(const ModelObject& object, bool inactiveCells, const QString& file, Findings& findings)
{
    if (!object.cells)
        throw ExportError(file, QStringLiteral("the volume %1 has no cells").arg(object.name),
                          QStringLiteral("choose a corner-point grid"));
    const CellGrid& grid = *object.cells;
    std::vector<qint64> cells = writtenCells(grid, inactiveCells);
    qint64 inactive = 0;
    for (qint64 cell = 0; !inactiveCells && cell < cellCount(grid); ++cell)
        inactive += isActive(grid, cell) ? 0 : 1;
    findings.note(finding::inactiveCellsLeftOut, object, inactive, QStringLiteral("inactiveCells=true writes them"));
    findings.note(finding::cellWithoutPosition, object, cellCount(grid) - inactive - static_cast<qint64>(cells.size()),
                  QStringLiteral("a depth or a pillar is missing"));
    if (cells.empty())
        throw ExportError(file, QStringLiteral("the volume %1 has no cell to write").arg(object.name),
                          QStringLiteral("choose a grid with depths, or inactiveCells=true"));
    return cells;
}

} // namespace kpFormats
