// SPDX-License-Identifier: MIT
#include "readers/TableReader.h"

#include "geo/CoordinateSystems.h"
#include "readers/CoordinateColumns.h"
#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"
#include "readers/TableColumn.h"
#include "readers/VectorReader.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

class PointTable
{
public:
    PointTable(const QString& path, const LoadOptions& options)
        : m_table(path, options.encoding)
        , m_options(options)
        , m_notes(m_table.notes())
        , m_axes(m_table.columns(), options)
        , m_name(QFileInfo(path).completeBaseName())
    {
    }

    bool hasPositions() const { return m_axes.hasPositions(); }
    bool hasGeometries() const { return !hasPositions() && m_table.columnNamed({QStringLiteral("WKT")}) >= 0; }

    LoadNotes read(Model& model)
    {
        checkOptions();
        findPoints();
        const QString crs = m_options.crs.isEmpty() ? ownSystem() : wktOf(m_options.crs);
        readColumns();
        if (m_options.type == ObjectType::Pins || m_options.type == ObjectType::Posts
            || m_options.type == ObjectType::Labels)
            addEach(model, crs);
        else
            addCloud(model, crs);
        LoadNotes notes;
        for (const QString& note : qAsConst(m_notes))
            notes.append(QStringLiteral("%1: %2").arg(m_table.path(), note));
        return notes;
    }

private:
    QString columnList() const
    {
        constexpr int mostShown = 20;
        return m_table.columns().mid(0, mostShown).join(QStringLiteral(", "));
    }

    void checkOptions() const
    {
        if (!m_options.layer.isEmpty() && m_options.layer != m_name)
            throw LoadError(m_table.path(), QStringLiteral("there is no layer \"%1\"").arg(m_options.layer),
                            QStringLiteral("it has: %1").arg(m_name));
        if (!hasPositions())
            throw LoadError(
                m_table.path(),
                QStringLiteral("none of its columns is known to hold coordinates; it has: %1").arg(columnList()),
                QStringLiteral("name them x, y and z in the file, or say which they are with \"x\", \"y\" and \"z\" "
                               "in its entry of a model file"));
        for (const QString& name : {m_options.z, m_options.nameField}) {
            if (!name.isEmpty() && m_table.columnNamed({name}) < 0)
                throw LoadError(m_table.path(), QStringLiteral("there is no column \"%1\"").arg(name),
                                QStringLiteral("it has: %1").arg(columnList()));
        }
        for (auto type = m_options.columnTypes.begin(); type != m_options.columnTypes.end(); ++type) {
            if (m_table.columnNamed({type.key()}) < 0)
                throw LoadError(m_table.path(),
                                QStringLiteral("there is no column \"%1\" to give a type").arg(type.key()),
                                QStringLiteral("it has: %1").arg(columnList()));
        }
    }

    void findPoints()
    {
        int without = 0;
        int firstWithout = 0;
        int flat = 0;
        int firstFlat = 0;
        for (int row = 0; row < m_table.rowCount(); ++row) {
            const auto x = m_table.number(row, m_axes.x);
            const auto y = m_table.number(row, m_axes.y);
            if (!x || !y || !std::isfinite(*x) || !std::isfinite(*y)) {
                if (without++ == 0)
                    firstWithout = m_table.line(row);
                continue;
            }
            m_rows.push_back(row);
            m_xs.push_back(*x);
            m_ys.push_back(*y);
            const auto z = m_axes.z < 0 ? std::optional<double>() : m_table.number(row, m_axes.z);
            const bool has = z && std::isfinite(*z);
            m_zs.push_back(has ? *z : std::numeric_limits<double>::quiet_NaN());
            m_hasZ = m_hasZ || has;
            if (!has && flat++ == 0)
                firstFlat = m_table.line(row);
        }
        if (m_rows.empty())
            throw LoadError(m_table.path(), QStringLiteral("no row of it has numbers for x and y"),
                            QStringLiteral("check it at its source"));
        if (without > 0)
            m_notes.append(QStringLiteral("%1 rows have no numbers for x and y and were left out; the first is line %2")
                               .arg(without)
                               .arg(firstWithout));
        if (m_axes.z >= 0 && flat > 0)
            m_notes.append(QStringLiteral("%1 rows have no number for z and so no height; the first is line %2")
                               .arg(flat)
                               .arg(firstFlat));
        if (!m_hasZ)
            std::fill(m_zs.begin(), m_zs.end(), 0.0);
    }

    QString ownSystem()
    {
        return systemOfColumns(m_table.columns()[m_axes.x], m_table.columns()[m_axes.y], m_xs, m_ys, m_notes);
    }

    void readColumns()
    {
        for (int column = 0; column < m_table.columns().size(); ++column) {
            if (column == m_axes.x || column == m_axes.y || column == m_axes.z)
                continue;
            QString type;
            for (auto asked = m_options.columnTypes.begin(); asked != m_options.columnTypes.end(); ++asked) {
                if (asked.key().compare(m_table.columns()[column], Qt::CaseInsensitive) == 0)
                    type = asked.value();
            }
            m_columns.push_back(tableColumn(m_table, column, m_rows, type, m_notes));
        }
    }

    void addCloud(Model& model, const QString& crs)
    {
        ModelObject cloud = newObject(m_table.path(), m_options, ObjectType::VertexClouds,
                                      m_options.name.isEmpty() ? m_name : m_options.name, m_name);
        cloud.crs = crs;
        cloud.hasZ = m_hasZ;
        setCoordinates(cloud, std::move(m_xs), std::move(m_ys), std::move(m_zs));
        cloud.vertexAttributes = std::move(m_columns);
        model.add(std::move(cloud));
    }

    QVariant valueOf(const AttributeColumn& column, std::size_t index) const
    {
        if (column.kind != AttributeKind::Real)
            return column.values[static_cast<int>(index)];
        return column.missing && (*column.missing)[index] ? QVariant() : QVariant((*column.numbers)[index]);
    }

    void addEach(Model& model, const QString& crs)
    {
        const int nameColumn = m_options.nameField.isEmpty() ? -1 : m_table.columnNamed({m_options.nameField});
        for (std::size_t index = 0; index < m_rows.size(); ++index) {
            QString name;
            if (nameColumn >= 0) {
                const std::string_view cell = m_table.cell(m_rows[index], nameColumn);
                name = QString::fromUtf8(cell.data(), static_cast<int>(cell.size())).simplified();
            }
            if (name.isEmpty())
                name = QStringLiteral("%1 %2").arg(m_options.name.isEmpty() ? m_name : m_options.name).arg(index + 1);
            ModelObject point = newObject(m_table.path(), m_options, ObjectType::Pins, name, m_name);
            point.crs = crs;
            point.hasZ = !std::isnan(m_zs[index]) && m_hasZ;
            setCoordinates(point, {m_xs[index]}, {m_ys[index]}, {point.hasZ ? m_zs[index] : 0.0});
            for (const AttributeColumn& column : m_columns)
                point.objectAttributes.push_back(
                    {column.name, column.kind, column.unit, valueOf(column, index), column.meaning});
            model.add(std::move(point));
        }
    }

    TextTable m_table;
    const LoadOptions& m_options;
    QStringList m_notes;
    CoordinateColumns m_axes;
    QString m_name;
    std::vector<int> m_rows;
    std::vector<double> m_xs;
    std::vector<double> m_ys;
    std::vector<double> m_zs;
    bool m_hasZ = false;
    std::vector<AttributeColumn> m_columns;
};

} // namespace

LoadNotes readTable(Model& model, const QString& path, const LoadOptions& options)
{
    PointTable table(path, options);
    // Geometries in the cells are GDAL's to read.
    return table.hasGeometries() ? readVectors(model, path, options) : table.read(model);
}

bool isPointTable(const QString& path, const LoadOptions& options)
{
    // Markup that GDAL refused holds numbers, but no points.
    QFile file(path);
    constexpr qint64 beginning = 64;
    if (!file.open(QIODevice::ReadOnly) || file.peek(beginning).trimmed().startsWith('<'))
        return false;
    try {
        return PointTable(path, options).hasPositions();
    } catch (const LoadError&) {
        return false;
    }
}

LoadNotes notesOf(const TextTable& table)
{
    LoadNotes notes;
    for (const QString& note : table.notes())
        notes.append(QStringLiteral("%1: %2").arg(table.path(), note));
    return notes;
}

} // namespace kpFormats
