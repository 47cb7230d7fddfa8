// SPDX-License-Identifier: MIT
#include "formats/vtk/VtkVerification.h"

#include "export/LengthFactors.h"
#include "export/WrittenCells.h"
#include "formats/vtk/VtkCells.h"
#include "formats/vtk/VtkColumns.h"
#include "formats/vtk/VtkImage.h"
#include "formats/vtk/VtkObjects.h"
#include "formats/vtk/VtkPolyData.h"
#include "model/SurfaceFaces.h"
#include "readers/VtkXmlFile.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

using Objects = std::vector<const ModelObject*>;

/// Where a value comes from.
struct Row
{
    std::size_t object;
    int row;
};

class FileCheck
{
public:
    FileCheck(const Objects& objects, const VtkDataSet& read, const VtkExportSettings& settings, Verification& result)
        : m_objects(objects)
        , m_read(read)
        , m_settings(settings)
        , m_result(result)
    {
    }

    void compareObjects()
    {
        if (!m_settings.texts)
            return;
        for (const QString& name : vtkObjectArrays())
            compareField(name, vtkObjectTexts(name, m_objects, m_settings));
        compareField(QStringLiteral("z_direction"), {vtkDirection(m_settings)});
        m_result.alsoCompared(QStringLiteral("names, coordinate systems and units"));
    }

    void compareColumns(const std::vector<VtkColumn>& columns, const std::vector<VtkDataArray>& arrays,
                        const std::vector<Row>& rows)
    {
        for (const VtkColumn& column : columns) {
            const VtkDataArray* const array = arrayNamed(arrays, column.name);
            if (!array || array->valueCount() != rows.size())
                return m_result.fail(QStringLiteral("the array \"%1\" is missing").arg(column.name));
            m_result.compareSame(QStringLiteral("units of attributes"), column.name, column.unit, array->unit);
            compareColumn(column, *array, rows);
        }
    }

    /// An array of the file's own.
    template <typename Expected>
    void compareOwn(const char* name, int components, const std::vector<VtkDataArray>& arrays, std::size_t count,
                    Expected expected)
    {
        const VtkDataArray* const array = arrayNamed(arrays, QLatin1String(name));
        if (!array || array->kind == VtkDataArray::Kind::Text || array->components != components
            || array->tupleCount() != count)
            return m_result.fail(QStringLiteral("the array \"%1\" is missing").arg(QLatin1String(name)));
        m_result.alsoCompared(QLatin1String(name));
        for (std::size_t index = 0; index < array->valueCount(); ++index) {
            const double wanted = expected(index);
            if (array->number(index) != wanted && !(std::isnan(wanted) && std::isnan(array->number(index))))
                return m_result.fail(QStringLiteral("%1, value %2: it is %3 instead of %4")
                                         .arg(QLatin1String(name))
                                         .arg(index + 1)
                                         .arg(array->number(index))
                                         .arg(wanted));
        }
    }

    void compareColours(const std::vector<Row>& cells)
    {
        if (!m_settings.colours)
            return;
        compareOwn("colour", 3, m_read.cellData, cells.size(), [&](std::size_t index) {
            const QColor colour = m_objects[cells[index / 3].object]->color;
            return static_cast<double>(index % 3 == 0 ? colour.red() : index % 3 == 1 ? colour.green() : colour.blue());
        });
    }

    void compareList(const char* what, const VtkCellList& wanted, const VtkCellList& read)
    {
        const QString name = QLatin1String(what);
        if (!m_result.compareCount(QStringLiteral("file"), name, static_cast<qint64>(wanted.size()),
                                   static_cast<qint64>(read.size())))
            return;
        if (wanted.ends != read.ends || wanted.points != read.points)
            return m_result.fail(QStringLiteral("the %1 join other points").arg(name));
        if (wanted.size() > 0)
            m_result.alsoCompared(name);
    }

    const VtkDataSet& read() const { return m_read; }
    Verification& result() { return m_result; }
    const Objects& objects() const { return m_objects; }

private:
    void compareField(const QString& name, const QStringList& wanted)
    {
        const VtkDataArray* const array = arrayNamed(m_read.fieldData, name);
        if (!array || array->texts.size() != wanted.size())
            return m_result.fail(QStringLiteral("the field data \"%1\" is missing").arg(name));
        for (int index = 0; index < wanted.size(); ++index) {
            if (array->texts[index] != QString::fromUtf8(vtkText(wanted[index])))
                return m_result.fail(QStringLiteral("the field data \"%1\" is \"%2\" instead of \"%3\"")
                                         .arg(name, array->texts[index].left(80), wanted[index].left(80)));
        }
    }

    void compareColumn(const VtkColumn& column, const VtkDataArray& array, const std::vector<Row>& rows)
    {
        using Kind = VtkDataArray::Kind;
        const Kind kind = column.type == VtkType::String    ? Kind::Text
                          : column.type == VtkType::Float64 ? Kind::Real
                                                            : Kind::Whole;
        if (array.kind != kind)
            return m_result.fail(QStringLiteral("the array \"%1\" is of another type").arg(column.name));
        for (std::size_t index = 0; index < rows.size() && m_result.good(); ++index) {
            const VtkSource& source = column.sources[rows[index].object];
            const int row = rows[index].row;
            const auto where = [&] { return QStringLiteral("%1, value %2").arg(column.name).arg(index + 1); };
            if (kind == Kind::Text) {
                const QString& text = array.texts[static_cast<int>(index)];
                if (source.isMissing(row))
                    m_result.compareMissing(text.isEmpty(), text, where);
                else
                    m_result.compareText(QString::fromUtf8(source.text(row)), text, where);
            } else if (kind == Kind::Real) {
                const double wanted = source.real(row);
                if (std::isnan(wanted))
                    m_result.compareMissing(std::isnan(array.reals[index]), QString::number(array.reals[index]), where);
                else
                    m_result.compareValue(wanted, array.reals[index], 0.0, where);
            } else {
                m_result.compareValue(0.0, static_cast<double>(array.wholes[index] - source.whole(row)), 0.0, where);
            }
        }
    }

    const Objects& m_objects;
    const VtkDataSet& m_read;
    const VtkExportSettings& m_settings;
    Verification& m_result;
};

/// What a file of points, lines and surfaces should hold, made from the objects vertex by vertex.
struct ExpectedFigures
{
    std::vector<Row> points; ///< object and vertex
    VtkCellList verts;
    VtkCellList lines;
    VtkCellList polys;
    std::vector<int> rings; ///< of lines
    std::vector<Row> vertOwners;
    std::vector<Row> lineOwners;
    std::vector<Row> polyOwners;

    ExpectedFigures(const Objects& objects, std::size_t read)
    {
        points.reserve(read);
        for (std::size_t object = 0; object < objects.size(); ++object)
            add(*objects[object], object);
    }

    std::vector<Row> cellOwners() const
    {
        std::vector<Row> all = vertOwners;
        all.insert(all.end(), lineOwners.begin(), lineOwners.end());
        all.insert(all.end(), polyOwners.begin(), polyOwners.end());
        return all;
    }

private:
    static void append(VtkCellList& list, const std::vector<std::int64_t>& cell, std::vector<Row>& owners,
                       std::size_t object)
    {
        list.points.insert(list.points.end(), cell.begin(), cell.end());
        list.ends.push_back(static_cast<std::int64_t>(list.points.size()));
        owners.push_back({object, 0});
    }

    void add(const ModelObject& object, std::size_t number)
    {
        std::vector<std::int64_t> ids;
        for (int vertex = 0; vertex < object.vertexCount(); ++vertex) {
            const auto at = static_cast<std::size_t>(vertex);
            const bool known =
                std::isfinite((*object.x)[at]) && std::isfinite((*object.y)[at]) && std::isfinite((*object.z)[at]);
            ids.push_back(known ? static_cast<std::int64_t>(points.size()) : -1);
            if (known)
                points.push_back({number, vertex});
        }
        if (object.grid)
            addNodes(object, number, ids);
        else if (!object.triangles.empty())
            addTriangles(object, number, ids);
        else if (!object.parts.empty())
            addParts(object, number, ids);
        else
            addPoints(number, ids);
    }

    void addPoints(std::size_t number, const std::vector<std::int64_t>& ids)
    {
        for (const std::int64_t id : ids) {
            if (id >= 0)
                append(verts, {id}, vertOwners, number);
        }
    }

    void addTriangles(const ModelObject& object, std::size_t number, const std::vector<std::int64_t>& ids)
    {
        for (const auto& triangle : object.triangles) {
            std::vector<std::int64_t> corners;
            for (const int vertex : triangle) {
                if (ids[static_cast<std::size_t>(vertex)] >= 0)
                    corners.push_back(ids[static_cast<std::size_t>(vertex)]);
            }
            if (corners.size() == 3)
                append(polys, corners, polyOwners, number);
        }
    }

    void addNodes(const ModelObject& object, std::size_t number, const std::vector<std::int64_t>& ids)
    {
        const int columns = object.grid->columns;
        for (int row = 0; row + 1 < object.grid->rows; ++row) {
            for (int column = 0; column + 1 < columns; ++column) {
                const int here = row * columns + column;
                std::vector<std::int64_t> corners;
                for (const int node : {here, here + 1, here + columns + 1, here + columns}) {
                    if (ids[static_cast<std::size_t>(node)] >= 0)
                        corners.push_back(ids[static_cast<std::size_t>(node)]);
                }
                if (corners.size() > 2)
                    append(polys, corners, polyOwners, number);
            }
        }
    }

    void addParts(const ModelObject& object, std::size_t number, const std::vector<std::int64_t>& ids)
    {
        for (const Part& part : object.parts) {
            const int ring = part.hole ? 2 : part.closed ? 1 : 0;
            std::vector<std::int64_t> line;
            const auto end = [&] {
                if (line.size() == 1)
                    append(verts, line, vertOwners, number);
                else if (line.size() > 1) {
                    append(lines, line, lineOwners, number);
                    rings.push_back(ring);
                }
                line.clear();
            };
            const auto first = static_cast<std::size_t>(part.first);
            const auto last = static_cast<std::size_t>(part.first + part.count - 1);
            for (int vertex = part.first; vertex < part.first + part.count; ++vertex) {
                const std::int64_t id = ids[static_cast<std::size_t>(vertex)];
                if (id < 0)
                    end();
                else
                    line.push_back(id);
            }
            const bool whole = part.count > 2 && line.size() == static_cast<std::size_t>(part.count);
            const auto differs = [&](const Numbers& axis) { return (*axis)[first] != (*axis)[last]; };
            if (part.closed && whole && (differs(object.x) || differs(object.y) || (object.hasZ && differs(object.z))))
                line.push_back(line.front());
            end();
        }
    }
};

void comparePolyData(FileCheck& check, const ExportSelection& selection, const VtkExportSettings& settings)
{
    Verification& result = check.result();
    const VtkDataSet& read = check.read();
    const ExpectedFigures expected(check.objects(), read.pointCount());
    if (!result.compareCount(QStringLiteral("file"), QStringLiteral("points"),
                             static_cast<qint64>(expected.points.size()), static_cast<qint64>(read.pointCount())))
        return;
    std::vector<LengthFactors> factors;
    for (const ModelObject* object : check.objects())
        factors.emplace_back(*object, settings.lengthUnit, settings.zIsElevation);
    for (std::size_t point = 0; point < expected.points.size(); ++point) {
        const Row& row = expected.points[point];
        const ModelObject& object = *check.objects()[row.object];
        const LengthFactors& by = factors[row.object];
        const auto vertex = static_cast<std::size_t>(row.row);
        result.comparePosition(
            {(*object.x)[vertex] * by.flat, (*object.y)[vertex] * by.flat, (*object.z)[vertex] * by.height},
            {read.points[3 * point], read.points[3 * point + 1], read.points[3 * point + 2]},
            [&] { return QStringLiteral("%1, vertex %2").arg(object.name).arg(vertex + 1); });
    }
    check.compareList("lone points", expected.verts, read.verts);
    check.compareList("lines", expected.lines, read.lines);
    check.compareList("faces", expected.polys, read.polys);
    const std::vector<Row> owners = expected.cellOwners();
    check.compareOwn("object", 1, read.cellData, owners.size(),
                     [&](std::size_t cell) { return static_cast<double>(owners[cell].object); });
    const std::size_t before = expected.vertOwners.size();
    check.compareOwn("ring", 1, read.cellData, owners.size(), [&](std::size_t cell) {
        const bool line = cell >= before && cell - before < expected.rings.size();
        return line ? static_cast<double>(expected.rings[cell - before]) : 0.0;
    });
    check.compareColours(owners);
    if (!result.good())
        return;
    Findings told;
    UniqueNames pointNames;
    check.compareColumns(vtkColumns(check.objects(), VtkPlace::Vertices, selection, settings, pointNames, told),
                         read.pointData, expected.points);
    UniqueNames cellNames;
    for (const char* own : {"object", "ring", "colour"}) {
        if (settings.colours || qstrcmp(own, "colour") != 0)
            cellNames.take(QLatin1String(own));
    }
    check.compareColumns(vtkColumns(check.objects(), VtkPlace::Object, selection, settings, cellNames, told),
                         read.cellData, owners);
}

void compareCells(FileCheck& check, const ExportSelection& selection, const VtkExportSettings& settings)
{
    Verification& result = check.result();
    const VtkDataSet& read = check.read();
    const ModelObject& object = *check.objects().front();
    const CellGrid& grid = *object.cells;
    const LengthFactors by(object, settings.lengthUnit, settings.zIsElevation);
    const std::vector<qint64> cells = writtenCells(grid, settings.inactiveCells);
    const std::array<CellCorner, 8> corners = hexahedronCorners(grid, settings.zIsElevation);
    if (!result.compareCount(object.name, QStringLiteral("cells"), static_cast<qint64>(cells.size()),
                             static_cast<qint64>(read.cells.size()))
        || !result.compareCount(object.name, QStringLiteral("points"), static_cast<qint64>(8 * cells.size()),
                                static_cast<qint64>(read.pointCount())))
        return;
    std::vector<Row> rows;
    for (std::size_t index = 0; index < cells.size(); ++index) {
        const CellIndex at = cellIndex(grid, cells[index]);
        rows.push_back({0, static_cast<int>(cells[index])});
        if (read.types[index] != 12 || read.cells.end(index) - read.cells.begin(index) != 8)
            return result.fail(QStringLiteral("cell %1 is no hexahedron").arg(index + 1));
        for (std::size_t corner = 0; corner < 8; ++corner) {
            const auto place =
                cornerPosition(grid, at, corners[corner].right, corners[corner].back, corners[corner].low);
            const auto point = static_cast<std::size_t>(read.cells.points[read.cells.begin(index) + corner]) * 3;
            result.comparePosition({place[0] * by.flat, place[1] * by.flat, -place[2] * by.height},
                                   {read.points[point], read.points[point + 1], read.points[point + 2]}, [&] {
                                       return QStringLiteral("%1, cell %2, corner %3")
                                           .arg(object.name)
                                           .arg(cells[index] + 1)
                                           .arg(corner + 1);
                                   });
        }
    }
    const auto indexed = [&](int CellIndex::*axis) {
        return [&, axis](std::size_t index) { return cellIndex(grid, cells[index]).*axis + 1.0; };
    };
    check.compareOwn("column", 1, read.cellData, cells.size(), indexed(&CellIndex::column));
    check.compareOwn("row", 1, read.cellData, cells.size(), indexed(&CellIndex::row));
    check.compareOwn("layer", 1, read.cellData, cells.size(), indexed(&CellIndex::layer));
    check.compareOwn("active", 1, read.cellData, cells.size(),
                     [&](std::size_t index) { return isActive(grid, cells[index]) ? 1.0 : 0.0; });
    check.compareOwn("grid_size", 3, read.fieldData, 1, [&](std::size_t axis) {
        return static_cast<double>(axis == 0 ? grid.columns : axis == 1 ? grid.rows : grid.layers);
    });
    check.compareOwn("grid_pillars", 6, read.fieldData, grid.coord.size() / 6,
                     [&](std::size_t index) { return grid.coord[index] * (index % 3 == 2 ? -by.height : by.flat); });
    check.compareColours(rows);
    if (!result.good())
        return;
    Findings told;
    UniqueNames names;
    for (const char* own : {"column", "row", "layer", "active", "colour"}) {
        if (settings.colours || qstrcmp(own, "colour") != 0)
            names.take(QLatin1String(own));
    }
    for (const VtkPlace place : {VtkPlace::Cells, VtkPlace::Object})
        check.compareColumns(vtkColumns(check.objects(), place, selection, settings, names, told), read.cellData, rows);
}

void compareImage(FileCheck& check, const ExportSelection& selection, const VtkExportSettings& settings)
{
    Verification& result = check.result();
    const VtkDataSet& read = check.read();
    const ModelObject& object = *check.objects().front();
    const LengthFactors by(object, settings.lengthUnit, settings.zIsElevation);
    const VtkDataArray* const heights = arrayNamed(read.pointData, vtkHeightName(settings));
    if (!heights || heights->kind != VtkDataArray::Kind::Real)
        return result.fail(QStringLiteral("there are no heights"));
    if (!result.compareCount(object.name, QStringLiteral("columns"), object.grid->columns, read.size[0])
        || !result.compareCount(object.name, QStringLiteral("rows"), object.grid->rows, read.size[1]))
        return;
    // A flat image lies at height 0, where it is drawn.
    if (read.size[2] != 1 || read.origin[2] != 0.0 || read.spacing[2] != 1.0 || std::abs(read.direction[8]) != 1.0)
        return result.fail(QStringLiteral("%1: the image is not flat at height 0").arg(object.name));
    std::vector<Row> rows;
    for (int node = 0; node < object.vertexCount(); ++node) {
        rows.push_back({0, node});
        const auto index = static_cast<std::size_t>(node);
        const double along = (node % read.size[0]) * read.spacing[0];
        const double across = (node / read.size[0]) * read.spacing[1]; // NOLINT(bugprone-integer-division)
        const auto where = [&] { return QStringLiteral("%1, node %2").arg(object.name).arg(node + 1); };
        const double z = heights->reals[index];
        const bool known = object.hasZ && std::isfinite((*object.z)[index]);
        result.compareFlatPosition({(*object.x)[index] * by.flat, (*object.y)[index] * by.flat, 0.0},
                                   {read.origin[0] + along * read.direction[0] + across * read.direction[1],
                                    read.origin[1] + along * read.direction[3] + across * read.direction[4], 0.0},
                                   where);
        if (known)
            result.compareValue((*object.z)[index] * by.height, z, 0.0, where);
        else
            result.compareMissing(std::isnan(z), QString::number(z), where);
    }
    Findings told;
    UniqueNames names;
    names.take(heights->name);
    for (const VtkPlace place : {VtkPlace::Vertices, VtkPlace::Object})
        check.compareColumns(vtkColumns(check.objects(), place, selection, settings, names, told), read.pointData,
                             rows);
}

/// The places of an image's nodes are its origin and steps: they come back with the rounding of this sum.
double imageAllowance(const ModelObject& object, double factor)
{
    constexpr double rounding = 1e-14;
    double most = 0.0;
    for (const Numbers& axis : {object.x, object.y}) {
        for (const double number : *axis)
            most = std::max(most, std::abs(number));
    }
    return rounding * most * factor;
}

} // namespace

Verification verifyVtk(VtkKind kind, const std::vector<const ModelObject*>& objects, const QString& path,
                       const ExportSelection& selection, const VtkExportSettings& settings)
{
    const Objects placed = kind == VtkKind::PolyData ? vtkPlaced(objects) : objects;
    const ModelObject& first = *placed.front();
    const LengthFactors by(first, settings.lengthUnit, settings.zIsElevation);
    const double allowed = kind == VtkKind::Image ? imageAllowance(first, by.flat) : 0.0;
    Verification result(QStringLiteral("the program's VTK reader"), allowed, by);
    std::vector<VtkDataSet> read;
    try {
        read = readVtkXml(path);
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    static const std::array<VtkDataSet::Kind, 3> kinds{VtkDataSet::Kind::PolyData, VtkDataSet::Kind::UnstructuredGrid,
                                                       VtkDataSet::Kind::ImageData};
    if (read.size() != 1 || read.front().kind != kinds[static_cast<std::size_t>(kind)]) {
        result.fail(QStringLiteral("it holds another data set than was written"));
        return result;
    }
    FileCheck check(placed, read.front(), settings, result);
    check.compareObjects();
    if (kind == VtkKind::PolyData)
        comparePolyData(check, selection, settings);
    else if (kind == VtkKind::Cells)
        compareCells(check, selection, settings);
    else
        compareImage(check, selection, settings);
    return result;
}

} // namespace kpFormats
