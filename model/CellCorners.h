// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"

#include <array>

namespace kpFormats
{

/// A cell of a corner-point grid by its number, columns fastest.
struct CellIndex
{
    int column;
    int row;
    int layer;
};

KPFORMATS_EXPORT qint64 cellCount(const CellGrid& grid);
KPFORMATS_EXPORT CellIndex cellIndex(const CellGrid& grid, qint64 cell);
inline bool isActive(const CellGrid& grid, qint64 cell)
{
    return grid.active.empty() || grid.active[static_cast<std::size_t>(cell)] != 0;
}

/// The place of a corner's depth in CellGrid::zcorn. \a right, \a back and \a low are 0 or 1: the corner at the next
/// column, at the next row and at the base of the cell.
KPFORMATS_EXPORT std::size_t cornerIndex(const CellGrid& grid, const CellIndex& cell, int right, int back, int low);
/// x and y where a pillar, six numbers, has that depth; its top where it has no height.
KPFORMATS_EXPORT std::array<double, 2> pillarPosition(const double* pillar, double depth);
/// x, y and depth of that corner, on its pillar.
KPFORMATS_EXPORT std::array<double, 3> cornerPosition(const CellGrid& grid, const CellIndex& cell, int right, int back,
                                                      int low);

/// x, y and depth of the middle of a cell: the mean of its corners.
KPFORMATS_EXPORT std::array<double, 3> cellCentre(const CellGrid& grid, qint64 cell);

/// Whether rows lie to the left of columns, as north does of east. Seen from above; told from the pillars.
KPFORMATS_EXPORT bool rowsLieLeft(const CellGrid& grid);

/// A corner of a cell: 0 or 1 to the next column, to the next row and to the base.
struct CellCorner
{
    int right;
    int back;
    int low;
};
/// The corners of a cell as a hexahedron, the face with the base's corners first if so wanted, counter-clockwise seen from
/// above where that is the lower one.
KPFORMATS_EXPORT std::array<CellCorner, 8> hexahedronCorners(const CellGrid& grid, bool baseFirst);

} // namespace kpFormats
