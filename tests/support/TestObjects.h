// SPDX-License-Identifier: MIT
#pragma once

#include "geo/CoordinateSystems.h"
#include "model/Model.h"

#include <array>
#include <cmath>
#include <limits>

// Small objects for the tests of the savers.

namespace kpFormats
{

constexpr double none = std::numeric_limits<double>::quiet_NaN();

/// A build with sanitizers is some thirty times as slow: it takes fewer steps and shorter lines.
#ifdef __SANITIZE_ADDRESS__
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif
constexpr int manyVertices = sanitized ? 50000 : 1000000;

inline Numbers numbersOf(std::vector<double> values)
{
    return std::make_shared<const std::vector<double>>(std::move(values));
}

inline ModelObject objectOf(const QString& name, ObjectType type, std::vector<double> x, std::vector<double> y,
                            std::vector<double> z, std::vector<Part> parts = {})
{
    ModelObject object;
    object.name = name;
    object.type = type;
    object.color = QColor(255, 0, 51);
    object.x = numbersOf(std::move(x));
    object.y = numbersOf(std::move(y));
    object.z = numbersOf(std::move(z));
    object.parts = std::move(parts);
    return object;
}

/// An object from rows of x, y, z, all one part, in a set and in a colour that CAD programs have in their table.
inline ModelObject objectOf(ObjectType type, const QString& name, const std::vector<std::array<double, 3>>& rows,
                            const char* crs = "EPSG:4326")
{
    std::vector<double> columns[3];
    for (const auto& row : rows) {
        for (std::size_t axis = 0; axis < 3; ++axis)
            columns[axis].push_back(row[axis]);
    }
    ModelObject object = objectOf(name, type, columns[0], columns[1], columns[2]);
    object.set = QStringLiteral("S");
    object.crs = wktOf(QString::fromLatin1(crs));
    object.color = QColor(0, 127, 255);
    const bool area = type == ObjectType::Polygons;
    if (area || type == ObjectType::Polylines || type == ObjectType::Wells)
        object.parts = {{0, static_cast<int>(rows.size()), area, false}};
    return object;
}

/// A grid surface of heights, row by row from the south; NaN is a node without value.
inline ModelObject gridOf(const QString& name, int columns, const std::vector<double>& heights, double x0 = 0,
                          double y0 = 0, double step = 1)
{
    std::vector<std::array<double, 3>> nodes;
    for (std::size_t node = 0; node < heights.size(); ++node)
        nodes.push_back({x0 + static_cast<double>(node % static_cast<std::size_t>(columns)) * step,
                         y0 + static_cast<double>(node / static_cast<std::size_t>(columns)) * step, heights[node]});
    ModelObject grid = objectOf(ObjectType::GridSurfaces, name, nodes);
    grid.grid =
        GridGeometry{columns, columns ? static_cast<int>(heights.size()) / columns : 0, x0, y0, step, step, 0.0};
    return grid;
}

/// A grid surface of height 100 * row + column from 1000, 2000.
inline ModelObject gridOf(int columns, int rows, double step = 10.0)
{
    std::vector<double> heights;
    for (int node = 0; node < columns * rows; ++node)
        heights.push_back(100.0 * (node / columns) + node % columns);
    ModelObject grid = gridOf(QStringLiteral("grid"), columns, heights, 1000, 2000, step);
    grid.crs.clear();
    return grid;
}

inline AttributeColumn columnOf(const QString& name, AttributeKind kind, const QVector<QVariant>& values)
{
    AttributeColumn column;
    column.name = name;
    column.kind = kind;
    if (kind != AttributeKind::Real) {
        column.values = values;
        return column;
    }
    std::vector<double> numbers;
    std::vector<unsigned char> missing;
    for (const QVariant& value : values) {
        numbers.push_back(value.toDouble());
        missing.push_back(value.isNull() ? 1 : 0);
    }
    column.numbers = numbersOf(std::move(numbers));
    column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    return column;
}

/// A box of cells of 10 x 10 x 5, its top at a depth of 1000, with a porosity of 0.25.
inline CellGrid cellsOf(int columns, int rows, int layers)
{
    CellGrid cells;
    cells.columns = columns;
    cells.rows = rows;
    cells.layers = layers;
    for (int j = 0; j <= rows; ++j) {
        for (int i = 0; i <= columns; ++i) {
            for (const double depth : {1000.0, 1000.0 + 5.0 * layers})
                cells.coord.insert(cells.coord.end(), {i * 10.0, j * 10.0, depth});
        }
    }
    for (int k = 0; k < 2 * layers; ++k)
        cells.zcorn.insert(cells.zcorn.end(), static_cast<std::size_t>(4 * columns * rows),
                           1000.0 + 5.0 * ((k + 1) / 2));
    cells.cellAttributes = {
        columnOf(QStringLiteral("PORO"), AttributeKind::Real, QVector<QVariant>(columns * rows * layers, 0.25))};
    return cells;
}

inline ModelObject boxOf(const CellGrid& cells)
{
    ModelObject box = objectOf(QStringLiteral("box"), ObjectType::GeoCellularVolumes, {0}, {0}, {-1000});
    box.cells = std::make_shared<const CellGrid>(cells);
    return box;
}

} // namespace kpFormats
