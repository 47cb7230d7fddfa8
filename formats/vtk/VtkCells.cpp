// SPDX-License-Identifier: MIT
#include "formats/vtk/VtkCells.h"

#include "export/LengthFactors.h"
#include "export/NumberColumns.h"
#include "export/WrittenCells.h"
#include "formats/vtk/VtkColumns.h"
#include "formats/vtk/VtkObjects.h"

#include <memory>

namespace kpFormats
{

namespace
{

constexpr int cornersOfCell = 8;
/// VTK_HEXAHEDRON
constexpr int hexahedron = 12;

using Cells = std::shared_ptr<const std::vector<qint64>>;

/// An array with so many values for each cell; \a put gives out those of one.
template <typename Put>
VtkArray cellArray(const char* name, VtkType type, qint64 perCell, const Cells& cells, Put put)
{
    VtkArray array;
    array.name = QString::fromLatin1(name);
    array.type = type;
    array.tuples = static_cast<qint64>(cells->size()) * perCell;
    array.write = [cells, put](VtkValues& values) {
        for (std::size_t index = 0; index < cells->size(); ++index) {
            put(values, static_cast<qint64>(index), (*cells)[index]);
            if (!values.next())
                return;
        }
    };
    return array;
}

std::vector<double> pillarsOf(const CellGrid& grid, const LengthFactors& by)
{
    std::vector<double> pillars;
    pillars.reserve(grid.coord.size());
    for (std::size_t index = 0; index + 2 < grid.coord.size(); index += 3) {
        pillars.push_back(grid.coord[index] * by.flat);
        pillars.push_back(grid.coord[index + 1] * by.flat);
        pillars.push_back(-grid.coord[index + 2] * by.height);
    }
    return pillars;
}

} // namespace

VtkDocument vtkCells(const PlannedFile& file, const ExportSelection& selection, const VtkExportSettings& settings,
                     Findings& findings)
{
    noteMissingAttributes(file.objects, selection, findings);
    const ModelObject& object = *file.objects.front();
    const auto cells =
        std::make_shared<const std::vector<qint64>>(writtenCells(object, settings.inactiveCells, file.path, findings));
    const CellGrid& grid = *object.cells;
    const auto count = static_cast<qint64>(cells->size());

    const LengthFactors by(object, settings.lengthUnit, settings.zIsElevation);
    // The face of the smaller z first.
    const std::array<CellCorner, 8> corners = hexahedronCorners(grid, settings.zIsElevation);
    VtkDocument document;
    document.type = "UnstructuredGrid";
    document.piece = " NumberOfPoints=\"" + std::to_string(count * cornersOfCell) + "\" NumberOfCells=\""
                     + std::to_string(count) + '"';
    document.rows = count;
    document.fieldData = vtkObjects(file.objects, settings, findings);
    document.fieldData.push_back(vtkWholes(QStringLiteral("grid_size"), 3, {grid.columns, grid.rows, grid.layers}));
    document.fieldData.push_back(vtkReals(QStringLiteral("grid_pillars"), 6, pillarsOf(grid, by)));

    const auto index = [&grid](int CellIndex::*axis) {
        return [&grid, axis](VtkValues& values, qint64, qint64 cell) { values.whole(cellIndex(grid, cell).*axis + 1); };
    };
    VtkSection cellData{"CellData",
                        {cellArray("column", VtkType::Int64, 1, cells, index(&CellIndex::column)),
                         cellArray("row", VtkType::Int64, 1, cells, index(&CellIndex::row)),
                         cellArray("layer", VtkType::Int64, 1, cells, index(&CellIndex::layer)),
                         cellArray("active", VtkType::UInt8, 1, cells, [&grid](VtkValues& values, qint64, qint64 cell) {
                             values.byte(isActive(grid, cell) ? 1 : 0);
                         })}};
    if (settings.colours) {
        cellData.arrays.push_back(cellArray("colour", VtkType::UInt8, 1, cells,
                                            [rgb = object.color.rgb()](VtkValues& values, qint64, qint64) {
                                                values.byte(qRed(rgb));
                                                values.byte(qGreen(rgb));
                                                values.byte(qBlue(rgb));
                                            }));
        cellData.arrays.back().components = 3;
    }
    UniqueNames names;
    for (const VtkArray& array : cellData.arrays)
        names.take(array.name);
    const VtkRows rows = [cells](const auto& visit) {
        for (const qint64 cell : *cells) {
            if (!visit(0, static_cast<int>(cell)))
                return;
        }
    };
    for (const VtkPlace place : {VtkPlace::Cells, VtkPlace::Object}) {
        for (VtkColumn& column : vtkColumns(file.objects, place, selection, settings, names, findings))
            cellData.arrays.push_back(vtkArrayOf(std::move(column), count, rows));
    }

    VtkArray points = cellArray(
        "Points", VtkType::Float64, cornersOfCell, cells, [&grid, corners, by](VtkValues& values, qint64, qint64 cell) {
            const CellIndex at = cellIndex(grid, cell);
            for (const CellCorner& corner : corners) {
                const auto place = cornerPosition(grid, at, corner.right, corner.back, corner.low);
                values.real(place[0] * by.flat);
                values.real(place[1] * by.flat);
                values.real(-place[2] * by.height);
            }
        });
    points.components = 3;
    VtkSection list{
        "Cells",
        {cellArray("connectivity", VtkType::Int64, cornersOfCell, cells,
                   [](VtkValues& values, qint64 number, qint64) {
                       for (int corner = 0; corner < cornersOfCell; ++corner)
                           values.whole(number * cornersOfCell + corner);
                   }),
         cellArray("offsets", VtkType::Int64, 1, cells,
                   [](VtkValues& values, qint64 number, qint64) { values.whole((number + 1) * cornersOfCell); }),
         cellArray("types", VtkType::UInt8, 1, cells,
                   [](VtkValues& values, qint64, qint64) { values.byte(hexahedron); })}};
    document.sections = {std::move(cellData), {"Points", {std::move(points)}}, std::move(list)};
    return document;
}

} // namespace kpFormats
