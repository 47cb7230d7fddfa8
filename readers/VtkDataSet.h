// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <vector>

namespace kpFormats
{

/// An array of a VTK file: numbers, whole numbers or texts, as many as the file has.
struct VtkDataArray
{
    enum class Kind { Real, Whole, Text };

    QString name;
    QString unit;
    Kind kind = Kind::Real;
    int components = 1;
    std::vector<double> reals;
    std::vector<std::int64_t> wholes;
    QStringList texts;

    std::size_t valueCount() const
    {
        if (kind == Kind::Text)
            return static_cast<std::size_t>(texts.size());
        return kind == Kind::Real ? reals.size() : wholes.size();
    }
    std::size_t tupleCount() const { return valueCount() / static_cast<std::size_t>(components); }
    double number(std::size_t value) const
    {
        return kind == Kind::Real ? reals[value] : static_cast<double>(wholes[value]);
    }
};

/// Cells as lists of points, one after the other; a cell ends before its entry in ends.
struct VtkCellList
{
    std::vector<std::int64_t> points;
    std::vector<std::int64_t> ends;

    std::size_t size() const { return ends.size(); }
    std::size_t begin(std::size_t cell) const { return cell == 0 ? 0 : static_cast<std::size_t>(ends[cell - 1]); }
    std::size_t end(std::size_t cell) const { return static_cast<std::size_t>(ends[cell]); }
};

/// One piece of a VTK file. What it says of itself holds together: cells name points that there are, arrays have a tuple
/// for each point or cell.
struct VtkDataSet
{
    enum class Kind { PolyData, UnstructuredGrid, StructuredGrid, ImageData };

    Kind kind = Kind::PolyData;
    std::vector<double> points; ///< three numbers each; empty for images
    VtkCellList verts;          ///< of PolyData, as the next three
    VtkCellList lines;
    VtkCellList strips;
    VtkCellList polys;
    VtkCellList cells;                ///< of UnstructuredGrid
    std::vector<int> types;           ///< of its cells, as VTK numbers them
    std::array<int, 3> size{0, 0, 0}; ///< points along each axis, of StructuredGrid and ImageData
    std::array<double, 3> origin{0, 0, 0};
    std::array<double, 3> spacing{1, 1, 1};
    std::array<double, 9> direction{1, 0, 0, 0, 1, 0, 0, 0, 1}; ///< row by row; its columns are the axes
    std::vector<VtkDataArray> pointData;
    std::vector<VtkDataArray> cellData;
    std::vector<VtkDataArray> fieldData;

    std::size_t pointCount() const
    {
        if (kind == Kind::ImageData)
            return static_cast<std::size_t>(size[0]) * static_cast<std::size_t>(size[1])
                   * static_cast<std::size_t>(size[2]);
        return points.size() / 3;
    }
};

/// The array of that name; null when there is none.
inline const VtkDataArray* arrayNamed(const std::vector<VtkDataArray>& arrays, const QString& name)
{
    for (const VtkDataArray& array : arrays) {
        if (array.name == name)
            return &array;
    }
    return nullptr;
}

} // namespace kpFormats
