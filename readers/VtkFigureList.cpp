// SPDX-License-Identifier: MIT
#include "readers/VtkFigureList.h"

#include <numeric>

namespace kpFormats
{

namespace
{

using Kind = VtkFigure::Kind;
using Points = std::vector<std::int64_t>;

class FigureList
{
public:
    void addPoints(const Points& points, std::size_t cell)
    {
        for (const std::int64_t point : points)
            figures.push_back({Kind::Point, {point}, cell});
    }
    void addLine(Points points, std::size_t cell)
    {
        if (points.size() > 1)
            figures.push_back({Kind::Line, std::move(points), cell});
        else
            addPoints(points, cell);
    }
    void addFace(Points points, std::size_t cell)
    {
        if (points.size() > 2)
            figures.push_back({Kind::Face, std::move(points), cell});
    }
    /// Every other triangle of a strip runs the other way.
    void addStrip(const Points& points, std::size_t cell)
    {
        for (std::size_t corner = 0; corner + 2 < points.size(); ++corner) {
            const bool turned = corner % 2 != 0;
            addFace({points[corner], points[corner + (turned ? 2 : 1)], points[corner + (turned ? 1 : 2)]}, cell);
        }
    }

    std::vector<VtkFigure> figures;
};

Points pointsOf(const VtkCellList& cells, std::size_t cell)
{
    const auto first = cells.points.begin();
    return Points(first + static_cast<std::ptrdiff_t>(cells.begin(cell)),
                  first + static_cast<std::ptrdiff_t>(cells.end(cell)));
}

void addPolyData(const VtkDataSet& dataSet, FigureList& list)
{
    std::size_t cell = 0;
    for (std::size_t index = 0; index < dataSet.verts.size(); ++index)
        list.addPoints(pointsOf(dataSet.verts, index), cell++);
    for (std::size_t index = 0; index < dataSet.lines.size(); ++index)
        list.addLine(pointsOf(dataSet.lines, index), cell++);
    for (std::size_t index = 0; index < dataSet.polys.size(); ++index)
        list.addFace(pointsOf(dataSet.polys, index), cell++);
    for (std::size_t index = 0; index < dataSet.strips.size(); ++index)
        list.addStrip(pointsOf(dataSet.strips, index), cell++);
    if (cell == 0) {
        // A cloud of points that has no cells.
        Points all(dataSet.pointCount());
        std::iota(all.begin(), all.end(), 0);
        list.addPoints(all, 0);
    }
}

void addCells(const VtkDataSet& dataSet, FigureList& list, std::size_t& volumes)
{
    for (std::size_t cell = 0; cell < dataSet.cells.size(); ++cell) {
        Points points = pointsOf(dataSet.cells, cell);
        switch (dataSet.types[cell]) {
        case 1: // vertex, poly vertex
        case 2:
            list.addPoints(points, cell);
            break;
        case 3: // line, poly line
        case 4:
            list.addLine(std::move(points), cell);
            break;
        case 6: // triangle strip
            list.addStrip(points, cell);
            break;
        case 8: // pixel: row by row
            if (points.size() == 4)
                std::swap(points[2], points[3]);
            list.addFace(std::move(points), cell);
            break;
        case 5: // triangle, polygon, quadrilateral
        case 7:
        case 9:
            list.addFace(std::move(points), cell);
            break;
        default:
            ++volumes;
        }
    }
}

/// A structured grid of one layer; the others are volumes.
void addSheet(const VtkDataSet& dataSet, FigureList& list, std::size_t& volumes)
{
    std::vector<int> sides;
    for (const int size : dataSet.size) {
        if (size > 1)
            sides.push_back(size);
    }
    if (sides.size() == 3) {
        volumes += static_cast<std::size_t>(sides[0] - 1) * static_cast<std::size_t>(sides[1] - 1)
                   * static_cast<std::size_t>(sides[2] - 1);
        return;
    }
    if (sides.size() < 2) {
        Points line(dataSet.pointCount());
        std::iota(line.begin(), line.end(), 0);
        return list.addLine(std::move(line), 0);
    }
    std::size_t cell = 0;
    for (std::int64_t row = 0; row + 1 < sides[1]; ++row) {
        for (std::int64_t column = 0; column + 1 < sides[0]; ++column) {
            const std::int64_t here = row * sides[0] + column;
            list.addFace({here, here + 1, here + 1 + sides[0], here + sides[0]}, cell++);
        }
    }
}

} // namespace

std::vector<VtkFigure> figuresOf(const VtkDataSet& dataSet, std::size_t& volumes)
{
    FigureList list;
    switch (dataSet.kind) {
    case VtkDataSet::Kind::PolyData:
        addPolyData(dataSet, list);
        break;
    case VtkDataSet::Kind::UnstructuredGrid:
        addCells(dataSet, list, volumes);
        break;
    case VtkDataSet::Kind::StructuredGrid:
        addSheet(dataSet, list, volumes);
        break;
    case VtkDataSet::Kind::ImageData:
        break;
    }
    return std::move(list.figures);
}

} // namespace kpFormats
