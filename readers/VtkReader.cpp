// SPDX-License-Identifier: MIT
#include "readers/VtkReader.h"

#include "model/CellCorners.h"
#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"
#include "readers/PolygonTriangles.h"
#include "readers/RegularGrid.h"
#include "readers/VtkFigureList.h"
#include "readers/VtkLegacyFile.h"
#include "readers/VtkObjectTexts.h"
#include "readers/VtkXmlFile.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace kpFormats
{

namespace
{

using ArrayKind = VtkDataArray::Kind;
using Rows = std::vector<std::size_t>;

/// Beyond this many, components are no attributes but a matrix.
constexpr int mostComponents = 9;

bool isMissing(const VtkDataArray& array, std::size_t value)
{
    if (array.kind == ArrayKind::Text)
        return array.texts[static_cast<int>(value)].isEmpty();
    return array.kind == ArrayKind::Real && std::isnan(array.reals[value]);
}

QVariant variantOf(const VtkDataArray& array, std::size_t value)
{
    if (isMissing(array, value))
        return {};
    if (array.kind == ArrayKind::Text)
        return array.texts[static_cast<int>(value)];
    if (array.kind == ArrayKind::Real)
        return array.reals[value];
    return static_cast<qlonglong>(array.wholes[value]);
}

AttributeKind kindOf(const VtkDataArray& array)
{
    if (array.kind == ArrayKind::Text)
        return AttributeKind::Text;
    return array.kind == ArrayKind::Real ? AttributeKind::Real : AttributeKind::Integer;
}

/// One component of an array at some of its tuples.
AttributeColumn columnOf(const VtkDataArray& array, int component, const Rows& rows)
{
    static const char* const axes[] = {"x", "y", "z"};
    AttributeColumn column;
    column.name = array.name;
    if (array.components > 1)
        column.name +=
            QLatin1Char('_')
            + (array.components == 3 ? QString::fromLatin1(axes[component]) : QString::number(component + 1));
    column.unit = array.unit;
    column.kind = kindOf(array);
    const auto valueOf = [&](std::size_t row) {
        return row * static_cast<std::size_t>(array.components) + static_cast<std::size_t>(component);
    };
    if (column.kind != AttributeKind::Real) {
        for (const std::size_t row : rows)
            column.values.append(variantOf(array, valueOf(row)));
        return column;
    }
    std::vector<double> numbers;
    std::vector<unsigned char> missing;
    bool any = false;
    for (const std::size_t row : rows) {
        numbers.push_back(array.reals[valueOf(row)]);
        missing.push_back(isMissing(array, valueOf(row)) ? 1 : 0);
        any = any || missing.back() != 0;
    }
    column.numbers = std::make_shared<const std::vector<double>>(std::move(numbers));
    if (any)
        column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    return column;
}

bool isAllMissing(const VtkDataArray& array, const Rows& rows)
{
    return std::all_of(rows.begin(), rows.end(), [&array](std::size_t row) {
        const std::size_t first = row * static_cast<std::size_t>(array.components);
        return isMissing(array, first);
    });
}

class VtkLoader
{
public:
    VtkLoader(Model& model, const QString& path, const LoadOptions& options)
        : m_model(model)
        , m_path(path)
        , m_options(options)
    {
    }

    LoadNotes load(std::vector<VtkDataSet> dataSets)
    {
        for (const VtkDataSet& dataSet : dataSets) {
            if (dataSet.kind == VtkDataSet::Kind::ImageData)
                addImage(dataSet);
            else if (!addCellGrid(dataSet))
                addFigures(dataSet);
        }
        note(m_volumes, "cells are volumes, or of an unknown type, and were left out");
        note(m_cellArrays, "arrays of cells differ within an object and were left out");
        note(m_wide, "arrays have more components than an attribute and were left out");
        note(m_withoutPlace, "points have no position and were left out");
        if (m_model.objects().empty())
            throw LoadError(m_path,
                            m_volumes > 0 ? QStringLiteral("it has volumes only, of which no grid can be made")
                                          : QStringLiteral("there is nothing in it"),
                            QStringLiteral("give a file of points, lines, surfaces or a flat image"));
        return m_notes;
    }

private:
    void note(std::size_t count, const char* what)
    {
        if (count > 0)
            m_notes.append(QStringLiteral("%1: %2 %3").arg(m_path).arg(count).arg(QLatin1String(what)));
    }
    [[noreturn]] void fail(const QString& cause) const
    {
        throw LoadError(m_path, cause, QStringLiteral("repair it at its source"));
    }

    QString nameOf(const VtkObjectTexts& texts, const char* ending = "") const
    {
        if (!m_options.name.isEmpty())
            return m_options.name;
        return texts.known ? texts.name : QFileInfo(m_path).completeBaseName() + QLatin1String(ending);
    }

    ModelObject objectFor(const VtkObjectTexts& texts, ObjectType type, const QString& name, const char* set) const
    {
        ModelObject object = newObject(m_path, m_options, type, name, texts.known ? texts.set : QLatin1String(set));
        texts.settle(object, m_options);
        return object;
    }

    void addColumns(std::vector<AttributeColumn>& columns, const std::vector<VtkDataArray>& arrays, const Rows& rows,
                    const QStringList& passOver = {})
    {
        for (const VtkDataArray& array : arrays) {
            if (passOver.contains(array.name) || isAllMissing(array, rows))
                continue;
            if (array.components > mostComponents) {
                ++m_wide;
                continue;
            }
            for (int component = 0; component < array.components; ++component)
                columns.push_back(columnOf(array, component, rows));
        }
    }

    /// Arrays of cells that have one value all over the object.
    void addObjectAttributes(ModelObject& object, const VtkDataSet& dataSet, const Rows& cells)
    {
        static const QStringList own{QStringLiteral("object"), QStringLiteral("ring"), QStringLiteral("colour")};
        if (cells.empty())
            return;
        for (const VtkDataArray& array : dataSet.cellData) {
            if (array.tupleCount() <= cells.back() || isAllMissing(array, cells) || own.contains(array.name))
                continue;
            const auto same = [&](std::size_t cell) {
                return isMissing(array, cell) == isMissing(array, cells.front())
                       && (isMissing(array, cell) || variantOf(array, cell) == variantOf(array, cells.front()));
            };
            if (array.components > 1 || !std::all_of(cells.begin(), cells.end(), same)) {
                ++m_cellArrays;
                continue;
            }
            object.objectAttributes.push_back(
                {array.name, kindOf(array), array.unit, variantOf(array, cells.front()), TextMeaning::Plain});
        }
    }

    void takeColour(ModelObject& object, const VtkDataSet& dataSet, std::size_t cell) const
    {
        const VtkDataArray* const colour = arrayNamed(dataSet.cellData, QStringLiteral("colour"));
        if (!m_options.color.isEmpty() || !colour || colour->kind != ArrayKind::Whole || colour->components != 3
            || cell >= colour->tupleCount())
            return;
        const QColor own(static_cast<int>(colour->wholes[3 * cell]), static_cast<int>(colour->wholes[3 * cell + 1]),
                         static_cast<int>(colour->wholes[3 * cell + 2]));
        if (own.isValid())
            object.color = own;
    }

    void addFigures(const VtkDataSet& dataSet)
    {
        std::vector<VtkFigure> figures = figuresOf(dataSet, m_volumes);
        const auto hasNoPlace = [&](const VtkFigure& figure) {
            return std::any_of(figure.points.begin(), figure.points.end(), [&](std::int64_t point) {
                const std::size_t first = static_cast<std::size_t>(point) * 3;
                return !std::isfinite(dataSet.points[first]) || !std::isfinite(dataSet.points[first + 1])
                       || !std::isfinite(dataSet.points[first + 2]);
            });
        };
        const auto placed = std::remove_if(figures.begin(), figures.end(), hasNoPlace);
        m_withoutPlace += static_cast<std::size_t>(figures.end() - placed);
        figures.erase(placed, figures.end());

        // The objects of a file of ours, by their numbers; else points, lines and faces apart.
        const VtkDataArray* const owner = arrayNamed(dataSet.cellData, QStringLiteral("object"));
        const bool ours =
            owner && owner->kind == ArrayKind::Whole && owner->components == 1 && VtkObjectTexts(dataSet, 0).known;
        std::map<std::int64_t, std::vector<const VtkFigure*>> groups;
        for (const VtkFigure& figure : figures)
            groups[ours && figure.cell < owner->wholes.size() ? owner->wholes[figure.cell]
                                                              : static_cast<std::int64_t>(figure.kind)]
                .push_back(&figure);
        for (const auto& group : groups) {
            const auto number = static_cast<std::size_t>(ours && group.first >= 0 ? group.first : 0);
            addObject(dataSet, group.second, ours ? VtkObjectTexts(dataSet, number) : VtkObjectTexts(),
                      groups.size() > 1);
        }
    }

    void addObject(const VtkDataSet& dataSet, const std::vector<const VtkFigure*>& figures, const VtkObjectTexts& texts,
                   bool oneOfSeveral)
    {
        using Kind = VtkFigure::Kind;
        const auto has = [&](Kind kind) {
            return std::any_of(figures.begin(), figures.end(),
                               [kind](const VtkFigure* figure) { return figure->kind == kind; });
        };
        const bool faces = has(Kind::Face);
        const std::optional<ObjectType> line =
            texts.typeAmong({ObjectType::Polygons, ObjectType::Polylines, ObjectType::Wells});
        const bool lines = !faces && (has(Kind::Line) || line);
        ObjectType type = ObjectType::MeshSurfaces;
        if (lines)
            type = line.value_or(ObjectType::Polylines);
        else if (!faces)
            type = texts.typeAmong({ObjectType::Pins, ObjectType::Posts, ObjectType::Labels, ObjectType::VertexClouds})
                       .value_or(ObjectType::VertexClouds);
        ModelObject object = objectFor(texts, type,
                                       nameOf(texts, !oneOfSeveral ? ""
                                                     : faces       ? " faces"
                                                     : lines       ? " lines"
                                                                   : " points"),
                                       faces   ? "Meshes"
                                       : lines ? "Lines"
                                               : "Points");
        Rows rows; // the points that become vertices
        if (faces)
            takeFaces(object, dataSet, figures, rows);
        else
            takeRuns(object, dataSet, figures, rows, lines);
        setPositions(object, dataSet, rows, texts);
        takeColour(object, dataSet, figures.front()->cell);
        addColumns(object.vertexAttributes, dataSet.pointData, rows);
        Rows cells;
        for (const VtkFigure* figure : figures)
            cells.push_back(figure->cell);
        std::sort(cells.begin(), cells.end());
        addObjectAttributes(object, dataSet, cells);
        m_model.add(std::move(object));
    }

    /// Points and lines: vertices in the order in which the figures have them.
    static void takeRuns(ModelObject& object, const VtkDataSet& dataSet, const std::vector<const VtkFigure*>& figures,
                         Rows& rows, bool lines)
    {
        const VtkDataArray* const rings = arrayNamed(dataSet.cellData, QStringLiteral("ring"));
        for (const VtkFigure* figure : figures) {
            Part part;
            part.first = static_cast<int>(rows.size());
            part.count = static_cast<int>(figure->points.size());
            for (const std::int64_t point : figure->points)
                rows.push_back(static_cast<std::size_t>(point));
            if (!lines)
                continue;
            const bool told = rings && rings->kind == ArrayKind::Whole && figure->cell < rings->wholes.size();
            const std::int64_t ring = told ? rings->wholes[figure->cell] : 0;
            part.closed = ring != 0 || (part.count > 3 && figure->points.front() == figure->points.back());
            part.hole = ring == 2;
            object.parts.push_back(part);
        }
    }

    /// Vertices in the order of the file, those that faces use.
    void takeFaces(ModelObject& object, const VtkDataSet& dataSet, const std::vector<const VtkFigure*>& figures,
                   Rows& rows)
    {
        for (const VtkFigure* figure : figures) {
            for (const std::int64_t point : figure->points)
                rows.push_back(static_cast<std::size_t>(point));
        }
        std::sort(rows.begin(), rows.end());
        rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
        std::vector<double> x;
        std::vector<double> y;
        std::vector<double> z;
        for (const std::size_t row : rows) {
            x.push_back(dataSet.points[3 * row]);
            y.push_back(dataSet.points[3 * row + 1]);
            z.push_back(dataSet.points[3 * row + 2]);
        }
        std::vector<int> corners;
        for (const VtkFigure* figure : figures) {
            if (figure->kind != VtkFigure::Kind::Face)
                continue;
            corners.clear();
            for (const std::int64_t point : figure->points)
                corners.push_back(static_cast<int>(
                    std::lower_bound(rows.begin(), rows.end(), static_cast<std::size_t>(point)) - rows.begin()));
            if (!appendTriangles(corners, x, y, z, object.triangles))
                fail(QStringLiteral("cell %1 has %2 corners and is not convex").arg(figure->cell).arg(corners.size()));
        }
    }

    void setPositions(ModelObject& object, const VtkDataSet& dataSet, const Rows& rows,
                      const VtkObjectTexts& texts) const
    {
        const double flat = texts.lengthFactor(m_options);
        const double up = texts.zIsDepth ? -flat : flat;
        std::vector<double> x;
        std::vector<double> y;
        std::vector<double> z;
        for (const std::size_t row : rows) {
            x.push_back(dataSet.points[3 * row] * flat);
            y.push_back(dataSet.points[3 * row + 1] * flat);
            z.push_back(dataSet.points[3 * row + 2] * up);
        }
        setCoordinates(object, std::move(x), std::move(y), std::move(z));
    }

    void addImage(const VtkDataSet& dataSet)
    {
        if (dataSet.size[2] != 1 || std::abs(dataSet.direction[6]) > 1e-9 || std::abs(dataSet.direction[7]) > 1e-9) {
            m_volumes += dataSet.pointCount();
            return;
        }
        const VtkObjectTexts texts(dataSet, 0);
        const double factor = texts.lengthFactor(m_options);
        const std::array<double, 9>& axes = dataSet.direction;
        RegularGrid grid;
        grid.geometry.columns = dataSet.size[0];
        grid.geometry.rows = dataSet.size[1];
        grid.geometry.originX = dataSet.origin[0] * factor;
        grid.geometry.originY = dataSet.origin[1] * factor;
        grid.geometry.stepX = dataSet.spacing[0] * factor;
        const bool left = axes[0] * axes[4] - axes[3] * axes[1] >= 0.0;
        grid.geometry.stepY = dataSet.spacing[1] * (left ? factor : -factor);
        grid.geometry.rotation = std::atan2(axes[3], axes[0]) * 180.0 / M_PI;
        const VtkDataArray* const heights = heightsOf(dataSet);
        const std::size_t nodes = dataSet.pointCount();
        if (!heights)
            throw LoadError(m_path, QStringLiteral("the image has no array of numbers at its points"),
                            QStringLiteral("give it one called elevation"));
        Rows rows;
        for (std::size_t node = 0; node < nodes; ++node) {
            rows.push_back(node);
            grid.z.push_back(heights->number(node) * (texts.zIsDepth ? -factor : factor));
        }
        addColumns(grid.attributes, dataSet.pointData, rows, {heights->name});
        ModelObject settled;
        texts.settle(settled, m_options);
        grid.crs = settled.crs;
        grid.unit = settled.lengthUnit == QLatin1String("m") && !texts.known ? QString() : settled.lengthUnit;
        LoadOptions options = m_options;
        options.name = nameOf(texts);
        if (options.set.isEmpty())
            options.set = texts.set;
        m_notes += addGrid(m_model, m_path, options, std::move(grid));
    }

    static const VtkDataArray* heightsOf(const VtkDataSet& dataSet)
    {
        for (const char* name : {"elevation", "depth"}) {
            const VtkDataArray* const array = arrayNamed(dataSet.pointData, QLatin1String(name));
            if (array && array->kind != ArrayKind::Text && array->components == 1)
                return array;
        }
        for (const VtkDataArray& array : dataSet.pointData) {
            if (array.kind != ArrayKind::Text && array.components == 1)
                return &array;
        }
        return nullptr;
    }

    /// \returns false when the data set is no cell grid of ours
    bool addCellGrid(const VtkDataSet& dataSet)
    {
        const VtkDataArray* const size = arrayNamed(dataSet.fieldData, QStringLiteral("grid_size"));
        const VtkDataArray* const pillars = arrayNamed(dataSet.fieldData, QStringLiteral("grid_pillars"));
        if (dataSet.kind != VtkDataSet::Kind::UnstructuredGrid || !size || !pillars || size->kind != ArrayKind::Whole
            || size->valueCount() != 3 || pillars->kind != ArrayKind::Real)
            return false;
        const VtkObjectTexts texts(dataSet, 0);
        CellGrid grid;
        requireSize(*size, pillars->reals, dataSet.cells.size());
        grid.columns = static_cast<int>(size->wholes[0]);
        grid.rows = static_cast<int>(size->wholes[1]);
        grid.layers = static_cast<int>(size->wholes[2]);
        const double flat = texts.lengthFactor(m_options);
        const double down = texts.zIsDepth ? flat : -flat;
        for (std::size_t index = 0; index < pillars->reals.size(); ++index)
            grid.coord.push_back(pillars->reals[index] * (index % 3 == 2 ? down : flat));
        const auto count = static_cast<std::size_t>(cellCount(grid));
        grid.zcorn.assign(8 * count, std::numeric_limits<double>::quiet_NaN());
        grid.active.assign(count, 0);
        constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();
        Rows cellOf(count, nowhere); // of the file, by the grid's
        takeCells(dataSet, texts, down, grid, cellOf);
        if (std::all_of(grid.active.begin(), grid.active.end(), [](int active) { return active == 1; }))
            grid.active.clear();
        takeProperties(dataSet, grid, cellOf);

        ModelObject object = objectFor(texts, ObjectType::GeoCellularVolumes, nameOf(texts), "Cell grids");
        takeColour(object, dataSet, 0);
        setOutline(object, grid);
        object.cells = std::make_shared<const CellGrid>(std::move(grid));
        m_model.add(std::move(object));
        return true;
    }

    void requireSize(const VtkDataArray& size, const std::vector<double>& pillars, std::size_t cells) const
    {
        // Cells without a place may be missing, but not nearly all of them.
        constexpr double mostMissing = 1000.0;
        double wanted = 6.0;
        double all = 1.0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const auto along = static_cast<double>(size.wholes[axis]);
            if (!(along >= 1.0 && along <= std::numeric_limits<int>::max()))
                fail(QStringLiteral("grid_size is not possible"));
            wanted *= axis < 2 ? along + 1.0 : 1.0;
            all *= along;
        }
        const bool finite =
            std::all_of(pillars.begin(), pillars.end(), [](double number) { return std::isfinite(number); });
        if (wanted != static_cast<double>(pillars.size()) || !finite)
            fail(QStringLiteral("grid_pillars are not those of a grid of that size"));
        if (all > mostMissing * (static_cast<double>(cells) + 1.0))
            fail(QStringLiteral("grid_size is not that of its %1 cells").arg(cells));
    }

    void takeCells(const VtkDataSet& dataSet, const VtkObjectTexts& texts, double down, CellGrid& grid,
                   Rows& cellOf) const
    {
        const VtkDataArray* index[3];
        std::size_t axis = 0;
        for (const char* name : {"column", "row", "layer"}) {
            index[axis] = arrayNamed(dataSet.cellData, QLatin1String(name));
            if (!index[axis] || index[axis]->kind != ArrayKind::Whole || index[axis]->components != 1)
                fail(QStringLiteral("there is no array \"%1\"").arg(QLatin1String(name)));
            ++axis;
        }
        const VtkDataArray* const active = arrayNamed(dataSet.cellData, QStringLiteral("active"));
        const bool told = active && active->kind == ArrayKind::Whole && active->components == 1;
        const std::array<CellCorner, 8> corners = hexahedronCorners(grid, !texts.zIsDepth);
        const std::array<int, 3> sizes{grid.columns, grid.rows, grid.layers};
        for (std::size_t cell = 0; cell < dataSet.cells.size(); ++cell) {
            std::array<int, 3> at{};
            for (axis = 0; axis < 3; ++axis) {
                const std::int64_t place = index[axis]->wholes[cell];
                if (place < 1 || place > sizes[axis])
                    fail(QStringLiteral("cell %1 lies outside the grid").arg(cell + 1));
                at[axis] = static_cast<int>(place - 1);
            }
            if (dataSet.cells.end(cell) - dataSet.cells.begin(cell) != corners.size())
                fail(QStringLiteral("cell %1 is no hexahedron").arg(cell + 1));
            const CellIndex place{at[0], at[1], at[2]};
            for (std::size_t corner = 0; corner < corners.size(); ++corner) {
                const auto point = static_cast<std::size_t>(dataSet.cells.points[dataSet.cells.begin(cell) + corner]);
                grid.zcorn[cornerIndex(grid, place, corners[corner].right, corners[corner].back, corners[corner].low)] =
                    dataSet.points[3 * point + 2] * down;
            }
            const std::size_t number = (static_cast<std::size_t>(at[2]) * static_cast<std::size_t>(grid.rows)
                                        + static_cast<std::size_t>(at[1]))
                                           * static_cast<std::size_t>(grid.columns)
                                       + static_cast<std::size_t>(at[0]);
            grid.active[number] = !told || active->wholes[cell] != 0 ? 1 : 0;
            cellOf[number] = cell;
        }
    }

    /// Arrays of cells; those that are not in the file have no value.
    void takeProperties(const VtkDataSet& dataSet, CellGrid& grid, const Rows& cellOf)
    {
        static const QStringList own{QStringLiteral("column"), QStringLiteral("row"), QStringLiteral("layer"),
                                     QStringLiteral("active"), QStringLiteral("colour")};
        Rows rows;
        for (const std::size_t cell : cellOf)
            rows.push_back(std::min(cell, dataSet.cells.size() - 1));
        addColumns(grid.cellAttributes, dataSet.cellData, rows, own);
        const bool whole =
            std::all_of(cellOf.begin(), cellOf.end(), [&](std::size_t cell) { return cell < dataSet.cells.size(); });
        for (AttributeColumn& column : grid.cellAttributes) {
            if (!whole)
                blank(column, cellOf, dataSet.cells.size());
        }
    }

    static void blank(AttributeColumn& column, const Rows& cellOf, std::size_t cells)
    {
        std::vector<unsigned char> missing =
            column.missing ? *column.missing : std::vector<unsigned char>(cellOf.size(), 0);
        for (std::size_t cell = 0; cell < cellOf.size(); ++cell) {
            if (cellOf[cell] < cells)
                continue;
            missing[cell] = 1;
            if (column.kind != AttributeKind::Real)
                column.values[static_cast<int>(cell)] = QVariant();
        }
        if (column.kind == AttributeKind::Real)
            column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    }

    Model& m_model;
    QString m_path;
    const LoadOptions& m_options;
    LoadNotes m_notes;
    std::size_t m_volumes = 0;
    std::size_t m_cellArrays = 0;
    std::size_t m_wide = 0;
    std::size_t m_withoutPlace = 0;
};

bool isLegacy(const QString& path)
{
    QFile file(path);
    return !QFileInfo(path).isDir() && file.open(QIODevice::ReadOnly) && file.read(5) == "# vtk";
}

} // namespace

LoadNotes readVtk(Model& model, const QString& path, const LoadOptions& options)
{
    std::vector<VtkDataSet> dataSets;
    if (isLegacy(path))
        dataSets.push_back(readVtkLegacy(path));
    else
        dataSets = readVtkXml(path);
    return VtkLoader(model, path, options).load(std::move(dataSets));
}

} // namespace kpFormats
