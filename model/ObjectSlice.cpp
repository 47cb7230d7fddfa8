// SPDX-License-Identifier: MIT
#include "model/ObjectSlice.h"

#include <algorithm>
#include <array>

namespace kpFormats
{

namespace
{

/// \a count values from \a first on.
template <typename Block>
std::shared_ptr<const Block> cut(const std::shared_ptr<const Block>& block, int first, int count)
{
    if (!block)
        return nullptr;
    const auto place = [&block](int index) {
        return block->begin() + static_cast<std::ptrdiff_t>(std::min(static_cast<std::size_t>(index), block->size()));
    };
    return std::make_shared<const Block>(place(first), place(first + count));
}

void cutColumns(std::vector<AttributeColumn>& columns, int first, int count)
{
    for (AttributeColumn& column : columns) {
        column.numbers = cut(column.numbers, first, count);
        column.missing = cut(column.missing, first, count);
        column.values = column.values.mid(first, count);
    }
}

/// Drops the parts behind so many vertices. A line is cut short there; a ring stays whole, with its holes.
/// \returns the vertices that are left
int cutParts(std::vector<Part>& parts, int most)
{
    int end = 0;
    std::size_t kept = 0;
    for (; kept < parts.size(); ++kept) {
        Part& part = parts[kept];
        if (end >= most && !part.hole)
            break;
        constexpr int fewest = 2;
        if (!part.closed && !part.hole)
            part.count = std::min(part.count, std::max(fewest, most - part.first));
        end = std::max(end, part.first + part.count);
    }
    parts.resize(kept);
    return end;
}

std::shared_ptr<const CellGrid> cutCells(const CellGrid& whole, int most)
{
    const std::size_t layer = static_cast<std::size_t>(whole.columns) * static_cast<std::size_t>(whole.rows);
    CellGrid cells;
    cells.columns = whole.columns;
    cells.rows = whole.rows;
    cells.coord = whole.coord;
    cells.cellAttributes = whole.cellAttributes;
    const auto layers = std::max<std::size_t>(1, static_cast<std::size_t>(most) / std::max<std::size_t>(1, layer));
    cells.layers = std::min(whole.layers, static_cast<int>(layers));
    const std::size_t count = layer * static_cast<std::size_t>(cells.layers);
    constexpr std::size_t cornersPerCell = 8;
    const auto endOf = [](const auto& block, std::size_t wanted) {
        return block.begin() + static_cast<std::ptrdiff_t>(std::min(block.size(), wanted));
    };
    cells.zcorn.assign(whole.zcorn.begin(), endOf(whole.zcorn, cornersPerCell * count));
    cells.active.assign(whole.active.begin(), endOf(whole.active, count));
    cutColumns(cells.cellAttributes, 0, static_cast<int>(count));
    return std::make_shared<const CellGrid>(std::move(cells));
}

} // namespace

ModelObject sliceOf(const ModelObject& object, int mostVertices)
{
    ModelObject slice = object;
    if (object.cells)
        slice.cells = cutCells(*object.cells, mostVertices);
    if (object.section || object.vertexCount() <= mostVertices)
        return slice;
    int first = 0;
    int count = mostVertices;
    if (object.grid) {
        // The margins of a grid are often empty.
        const GridGeometry& grid = *object.grid;
        const int rows = std::min(grid.rows, std::max(2, mostVertices / std::max(1, grid.columns)));
        first = (grid.rows - rows) / 2 * grid.columns;
        count = rows * grid.columns;
        slice.grid->rows = rows;
        slice.grid->originX = (*object.x)[static_cast<std::size_t>(first)];
        slice.grid->originY = (*object.y)[static_cast<std::size_t>(first)];
    } else if (!object.parts.empty()) {
        count = cutParts(slice.parts, mostVertices);
    }
    slice.x = cut(object.x, first, count);
    slice.y = cut(object.y, first, count);
    slice.z = cut(object.z, first, count);
    cutColumns(slice.vertexAttributes, first, count);
    const auto outside = [count](const std::array<int, 3>& triangle) {
        return *std::max_element(triangle.begin(), triangle.end()) >= count;
    };
    slice.triangles.erase(std::remove_if(slice.triangles.begin(), slice.triangles.end(), outside),
                          slice.triangles.end());
    return slice;
}

} // namespace kpFormats
