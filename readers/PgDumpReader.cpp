// SPDX-License-Identifier: MIT
#include "readers/PgDumpReader.h"

#include "geo/GdalSession.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QtEndian>

#include <ogrsf_frmts.h>

#include <vector>

namespace kpFormats
{

namespace
{

struct Column
{
    QString name;
    OGRFieldType type;
    OGRFieldSubType subtype;
};

struct Table
{
    int srid = 0;
    OGRwkbGeometryType type = wkbUnknown;
    QString geometry;
    std::vector<Column> columns;
};

/// Between double quotes, those inside doubled.
const QString identifier = QStringLiteral("\"((?:[^\"]|\"\")*)\"");

QString plain(const QString& quoted)
{
    QString text = quoted;
    return text.replace(QStringLiteral("\"\""), QStringLiteral("\""));
}

/// Inside single quotes.
QString unquoted(const QString& quoted)
{
    QString text = quoted;
    return text.replace(QStringLiteral("''"), QStringLiteral("'"));
}

Column columnOf(const QString& name, const QString& type)
{
    const QString word = type.toUpper();
    if (word == QLatin1String("FLOAT8"))
        return {name, OFTReal, OFSTNone};
    if (word == QLatin1String("INTEGER"))
        return {name, OFTInteger, OFSTNone};
    if (word == QLatin1String("BOOLEAN"))
        return {name, OFTInteger, OFSTBoolean};
    if (word == QLatin1String("DATE"))
        return {name, OFTDate, OFSTNone};
    return {name, word == QLatin1String("TIME") ? OFTTime : OFTString, OFSTNone};
}

/// A value of a COPY line; null for a missing one.
QByteArray valueOf(const QByteArray& field)
{
    if (field == "\\N")
        return {};
    QByteArray value("");
    for (int index = 0; index < field.size(); ++index) {
        if (field[index] != '\\' || index + 1 == field.size()) {
            value += field[index];
            continue;
        }
        const char next = field[++index];
        value += next == 'n' ? '\n' : next == 't' ? '\t' : next == 'r' ? '\r' : next;
    }
    return value;
}

/// A geometry as extended WKB in hexadecimal digits, whose type may say that a number of the system follows.
OGRGeometry* geometryOf(const QByteArray& digits)
{
    constexpr quint32 hasSystem = 0x20000000;
    QByteArray bytes = QByteArray::fromHex(digits);
    if (bytes.size() < 9 || bytes.at(0) != 1)
        return nullptr;
    const auto type = qFromLittleEndian<quint32>(bytes.constData() + 1);
    if ((type & hasSystem) != 0) {
        bytes.remove(5, 4);
        qToLittleEndian(type & ~hasSystem, bytes.data() + 1);
    }
    OGRGeometry* geometry = nullptr;
    OGRGeometryFactory::createFromWkb(bytes.constData(), nullptr, &geometry, static_cast<std::size_t>(bytes.size()));
    return geometry;
}

class DumpReader
{
public:
    DumpReader(QFile& file, GDALDataset& dataset)
        : m_file(file)
        , m_dataset(dataset)
    {
    }

    /// False when something is not as it must be.
    bool read()
    {
        static const QRegularExpression create(QStringLiteral("^CREATE TABLE \"[^\"]*\"\\.%1 ").arg(identifier));
        static const QRegularExpression geometry(QStringLiteral(
            "^SELECT AddGeometryColumn\\('[^']*','((?:[^']|'')*)','((?:[^']|'')*)',(-?\\d+),'(\\w+)',(\\d)\\);$"));
        static const QRegularExpression add(
            QStringLiteral("^ALTER TABLE \"[^\"]*\"\\.%1 ADD COLUMN %1 (\\w+);$").arg(identifier));
        static const QRegularExpression copy(
            QStringLiteral("^COPY \"[^\"]*\"\\.%1 \\((.*)\\) FROM STDIN;$").arg(identifier));
        while (!m_file.atEnd()) {
            const QString line = QString::fromUtf8(m_file.readLine()).chopped(1);
            QRegularExpressionMatch match = create.match(line);
            if (match.hasMatch()) {
                m_tables[plain(match.captured(1))] = Table();
            } else if ((match = geometry.match(line)).hasMatch()) {
                Table& table = m_tables[unquoted(match.captured(1))];
                table.geometry = unquoted(match.captured(2));
                table.srid = match.captured(3).toInt();
                table.type = OGRFromOGCGeomType(match.captured(4).toLatin1().constData());
                if (match.captured(5).toInt() == 3)
                    table.type = static_cast<OGRwkbGeometryType>(wkbSetZ(table.type));
            } else if ((match = add.match(line)).hasMatch()) {
                m_tables[plain(match.captured(1))].columns.push_back(
                    columnOf(plain(match.captured(2)), match.captured(3)));
            } else if ((match = copy.match(line)).hasMatch()) {
                if (!readRows(plain(match.captured(1)), match.captured(2)))
                    return false;
            }
        }
        return m_dataset.GetLayerCount() > 0;
    }

private:
    /// The columns that a COPY names must be the geometry and then all others in order.
    bool readRows(const QString& name, const QString& list)
    {
        const Table table = m_tables.value(name);
        QStringList wanted{table.geometry};
        for (const Column& column : table.columns)
            wanted.append(column.name);
        for (QString& column : wanted)
            column = QLatin1Char('"') + column.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
        if (wanted.join(QStringLiteral(", ")) != list)
            return false;
        OGRSpatialReference system;
        if (table.srid > 0 && system.importFromEPSG(table.srid) != OGRERR_NONE)
            return false;
        system.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        OGRLayer* const layer =
            m_dataset.CreateLayer(name.toUtf8().constData(), table.srid > 0 ? &system : nullptr, table.type);
        for (const Column& column : table.columns) {
            OGRFieldDefn field(column.name.toUtf8().constData(), column.type);
            field.SetSubType(column.subtype);
            if (!layer || layer->CreateField(&field) != OGRERR_NONE)
                return false;
        }
        for (QByteArray row = nextRow(); row != "\\."; row = nextRow()) {
            if (row.isNull() || !addFeature(*layer, table, row))
                return false;
        }
        return true;
    }

    /// Without its end; a line feed of a value has a backslash before it. Null at the end of the file.
    QByteArray nextRow()
    {
        QByteArray row;
        while (!m_file.atEnd()) {
            row += m_file.readLine();
            if (!row.endsWith('\n'))
                return {};
            int slashes = 0;
            while (slashes + 1 < row.size() && row[row.size() - 2 - slashes] == '\\')
                ++slashes;
            if (slashes % 2 == 0)
                return row.chopped(1);
        }
        return {};
    }

    static bool addFeature(OGRLayer& layer, const Table& table, const QByteArray& row)
    {
        const QList<QByteArray> fields = fieldsOf(row);
        if (fields.size() != static_cast<int>(table.columns.size()) + 1)
            return false;
        const OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer.GetLayerDefn()));
        OGRGeometry* const geometry = geometryOf(fields[0]);
        if (!geometry)
            return false;
        feature->SetGeometryDirectly(geometry);
        for (int index = 1; index < fields.size(); ++index) {
            const QByteArray value = valueOf(fields[index]);
            const bool yes = value == "t" || value == "1";
            if (value.isNull())
                feature->SetFieldNull(index - 1);
            else if (table.columns[static_cast<std::size_t>(index) - 1].subtype == OFSTBoolean)
                feature->SetField(index - 1, yes ? 1 : 0);
            else
                feature->SetField(index - 1, value.constData());
        }
        return layer.CreateFeature(feature.get()) == OGRERR_NONE;
    }

    /// A tab of a value has a backslash before it.
    static QList<QByteArray> fieldsOf(const QByteArray& row)
    {
        QList<QByteArray> fields;
        int start = 0;
        for (int index = 0; index < row.size(); ++index) {
            if (row[index] == '\\') {
                ++index;
            } else if (row[index] == '\t') {
                fields.append(row.mid(start, index - start));
                start = index + 1;
            }
        }
        fields.append(row.mid(start));
        return fields;
    }

    QFile& m_file;
    GDALDataset& m_dataset;
    QHash<QString, Table> m_tables;
};

} // namespace

bool isPgDump(const QString& path)
{
    QFile file(path);
    constexpr qint64 enough = 4096;
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray begin = file.read(enough);
    return begin.startsWith("SET standard_conforming_strings") && begin.contains("\nCREATE TABLE ");
}

GDALDatasetUniquePtr readPgDump(const QString& path)
{
    registerGdalDrivers();
    GDALDriver* const memory = GetGDALDriverManager()->GetDriverByName("Memory");
    GDALDatasetUniquePtr dataset(memory ? memory->Create("", 0, 0, 0, GDT_Unknown, nullptr) : nullptr);
    QFile file(path);
    if (!dataset || !file.open(QIODevice::ReadOnly) || !DumpReader(file, *dataset).read()) {
        CPLError(CE_Failure, CPLE_AppDefined, "this is no dump of tables with geometries, or is damaged");
        return nullptr;
    }
    return dataset;
}

} // namespace kpFormats
