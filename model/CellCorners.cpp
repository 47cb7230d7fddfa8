// SPDX-License-Identifier: MIT
#include "model/CellCorners.h"

#include <utility>

namespace kpFormats
{

namespace
{

const double* pillarAt(const CellGrid& grid, int column, int row)
{
    return grid.coord.data() + 6 * (static_cast<std::size_t>(row) * (grid.columns + 1) + column);
}

} // namespace

qint64 cellCount(const CellGrid& grid)
{
    return static_cast<qint64>(grid.columns) * grid.rows * grid.layers;
}

CellIndex cellIndex(const CellGrid& grid, qint64 cell)
{
    const qint64 line = cell / grid.columns;
    return {static_cast<int>(cell % grid.columns), static_cast<int>(line % grid.rows),
            static_cast<int>(line / grid.rows)};
}

std::size_t cornerIndex(const CellGrid& grid, const CellIndex& cell, int right, int back, int low)
{
    const auto wide = static_cast<std::size_t>(2) * grid.columns;
    const auto deep = static_cast<std::size_t>(2) * grid.rows;
    const auto at = [](int index, int next) { return static_cast<std::size_t>(2) * index + next; };
    return (at(cell.layer, low) * deep + at(cell.row, back)) * wide + at(cell.column, right);
}

std::array<double, 2> pillarPosition(const double* pillar, double depth)
{
    const double height = pillar[5] - pillar[2];
    const double share = height == 0.0 ? 0.0 : (depth - pillar[2]) / height;
    return {pillar[0] + share * (pillar[3] - pillar[0]), pillar[1] + share * (pillar[4] - pillar[1])};
}

std::array<double, 3> cornerPosition(const CellGrid& grid, const CellIndex& cell, int right, int back, int low)
{
    const double* const pillar = pillarAt(grid, cell.column + right, cell.row + back);
    const double depth = grid.zcorn[cornerIndex(grid, cell, right, back, low)];
    const std::array<double, 2> place = pillarPosition(pillar, depth);
    return {place[0], place[1], depth};
}

std::array<double, 3> cellCentre(const CellGrid& grid, qint64 cell)
{
    const CellIndex at = cellIndex(grid, cell);
    std::array<double, 3> sum{};
    for (const int low : {0, 1}) {
        for (const int back : {0, 1}) {
            for (const int right : {0, 1}) {
                const std::array<double, 3> corner = cornerPosition(grid, at, right, back, low);
                for (std::size_t axis = 0; axis < sum.size(); ++axis)
                    sum[axis] += corner[axis] / 8.0;
            }
        }
    }
    return sum;
}

bool rowsLieLeft(const CellGrid& grid)
{
    double area = 0.0;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const double* const here = pillarAt(grid, column, row);
            const double* const right = pillarAt(grid, column + 1, row);
            const double* const back = pillarAt(grid, column, row + 1);
            area += (right[0] - here[0]) * (back[1] - here[1]) - (right[1] - here[1]) * (back[0] - here[0]);
        }
    }
    return area >= 0.0;
}

std::array<CellCorner, 8> hexahedronCorners(const CellGrid& grid, bool baseFirst)
{
    std::array<CellCorner, 4> ring{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}};
    if (!rowsLieLeft(grid))
        std::swap(ring[1], ring[3]);
    const int first = baseFirst ? 1 : 0;
    std::array<CellCorner, 8> corners{};
    for (std::size_t corner = 0; corner < ring.size(); ++corner) {
        corners[corner] = {ring[corner].right, ring[corner].back, first};
        corners[corner + ring.size()] = {ring[corner].right, ring[corner].back, 1 - first};
    }
    return corners;
}

} // namespace kpFormats
