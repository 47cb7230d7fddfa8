// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiVerification.h"

#include "formats/ascii/AsciiOutput.h"
#include "formats/ascii/FormulaGuard.h"
#include "geo/CoordinateSystems.h"

#include <QColor>
#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

/// What must stand in a field of the rows of one object.
struct Expected
{
    enum Kind { Coordinate, Number, Text, Absent };

    Kind kind = Absent;
    const std::vector<double>* numbers = nullptr;        ///< one per row; else values or the constant
    const std::vector<unsigned char>* missing = nullptr; ///< of the numbers
    const QVector<QVariant>* values = nullptr;
    QVariant constant;
    int columns = 0; ///< of a grid, for the index of its column or row
    bool isRowIndex = false;
    AttributeKind attribute = AttributeKind::Real;
    double sign = 1.0;
    double tolerance = 0.0;
    bool flat = false;
};

bool isGridIndex(const AsciiColumn& column)
{
    return column.source == AsciiColumn::GridColumn || column.source == AsciiColumn::GridRow;
}

/// A text as a line of the file can hold it.
QString inOneLine(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    text.replace(QLatin1Char('\r'), QLatin1Char(' '));
    return QString::fromUtf8(text.toUtf8());
}

class TableReader
{
public:
    TableReader(const PlannedFile& file, const AsciiTable& table, const AsciiExportSettings& settings,
                QTextStream& text, Verification& found)
        : m_file(file)
        , m_table(table)
        , m_settings(settings)
        , m_text(text)
        , m_found(found)
        , m_inColumns(settings.mode == AsciiExportSettings::Mode::Columns)
        , m_separator(separatorText(settings))
        , m_guard(settings)
        , m_blankHeights(leavesHeightsBlank(settings))
    {
    }

    void read()
    {
        if (m_settings.header)
            compareHeader(m_text.readLine());
        for (const ModelObject* object : m_file.objects) {
            if (m_found.good())
                readObject(*object);
        }
        if (m_found.good() && !m_text.readLine().isNull())
            m_found.fail(QStringLiteral("there are more lines than vertices"));
    }

private:
    void compareHeader(const QString& line)
    {
        QStringList wanted;
        for (std::size_t field = 0; field < m_table.fields.size(); ++field) {
            const AsciiColumn::Source source = m_table.columns[field].source;
            const bool coordinate = source == AsciiColumn::X || source == AsciiColumn::Y || source == AsciiColumn::Z;
            wanted.append(coordinate ? m_table.fields[field].name.toUpper() : m_table.fields[field].name);
        }
        if (m_settings.preset != AsciiExportSettings::Preset::None) {
            // Of the fields after the third the headers of other programs have the names.
            for (int field = 3; field < wanted.size(); ++field) {
                QString dashed = wanted[field];
                if (!line.contains(wanted[field]) && !line.contains(dashed.replace(QLatin1Char(' '), QLatin1Char('-'))))
                    m_found.fail(QStringLiteral("the header does not name %1").arg(wanted[field]));
            }
            return m_found.alsoCompared(QStringLiteral("header"));
        }
        QStringList read;
        for (std::size_t field = 0; m_inColumns && field < m_table.fields.size(); ++field) {
            const int width = widthOf(field);
            read.append(line.mid(positionOf(field), width).trimmed());
            if (wanted[static_cast<int>(field)].size() > width)
                wanted[static_cast<int>(field)] =
                    width > 0 ? wanted[static_cast<int>(field)].left(width - 1) + QLatin1Char('*') : QString();
            wanted[static_cast<int>(field)] = wanted[static_cast<int>(field)].trimmed();
        }
        for (int field = 0; !m_inColumns && field < wanted.size(); ++field)
            wanted[field] = inQuotes(wanted[field]);
        const QString between = m_inColumns ? QStringLiteral("|") : m_separator;
        m_found.compareSame(QStringLiteral("header"), QStringLiteral("file"), wanted.join(between),
                            m_inColumns ? read.join(between) : line);
    }

    void readObject(const ModelObject& object)
    {
        m_object = &object;
        const QString name = QString::fromUtf8(m_guard.guarded(object.name.simplified()).toUtf8());
        if (m_settings.lineBreaks && !name.isEmpty())
            m_found.compareText(name, m_text.readLine(), [] { return QStringLiteral("line before the object"); });
        std::vector<Expected> fields;
        for (std::size_t field = 0; field < m_table.columns.size(); ++field)
            fields.push_back(expected(field));
        for (m_row = 0; m_row < object.vertexCount() && m_found.good(); ++m_row) {
            const QString line = m_text.readLine();
            if (line.isNull())
                return m_found.fail(QStringLiteral("%1: it ends at row %2 of %3")
                                        .arg(object.name)
                                        .arg(m_row)
                                        .arg(object.vertexCount()));
            compareRow(fields, line);
            m_found.countPosition();
        }
        if (m_found.good() && m_settings.lineBreaks && !m_text.readLine().isEmpty())
            m_found.fail(QStringLiteral("%1: it is not followed by an empty line").arg(object.name));
    }

    Expected expected(std::size_t field) const
    {
        Expected one;
        one.tolerance = 0.5 * std::pow(10.0, -m_table.fields[field].precision);
        const AsciiColumn& column = m_table.columns[field];
        const std::vector<double>* const coordinates[] = {m_object->x.get(), m_object->y.get(), m_object->z.get()};
        if (column.source == AsciiColumn::X || column.source == AsciiColumn::Y || column.source == AsciiColumn::Z) {
            const bool isZ = column.source == AsciiColumn::Z;
            one.kind = Expected::Coordinate;
            one.numbers = coordinates[isZ ? 2 : column.source == AsciiColumn::Y ? 1 : 0];
            one.flat = isZ && !m_object->hasZ;
            one.sign = isZ && !m_settings.zIsElevation ? -1.0 : 1.0;
        } else if (isGridIndex(column) && m_object->grid) {
            one.kind = Expected::Text;
            one.attribute = AttributeKind::Integer;
            one.columns = m_object->grid->columns;
            one.isRowIndex = column.source == AsciiColumn::GridRow;
        } else if (!isGridIndex(column)) {
            findAttribute(column.attribute, one);
        }
        return one;
    }

    void findAttribute(const QString& name, Expected& one) const
    {
        const auto take = [&one](AttributeKind kind) {
            one.kind = kind == AttributeKind::Real ? Expected::Number : Expected::Text;
            one.attribute = kind;
        };
        for (const AttributeColumn& column : m_object->vertexAttributes) {
            if (column.name != name)
                continue;
            take(column.kind);
            one.numbers = column.kind == AttributeKind::Real ? column.numbers.get() : nullptr;
            one.missing = column.missing.get();
            one.values = column.kind == AttributeKind::Real ? nullptr : &column.values;
            return;
        }
        for (const ObjectAttribute& attribute : m_object->objectAttributes) {
            if (attribute.name != name)
                continue;
            take(attribute.kind);
            one.constant = attribute.value;
            return;
        }
    }

    int widthOf(std::size_t field) const
    {
        return std::max(m_table.fields[field].end - m_table.fields[field].start + 1, 0);
    }
    /// Where a field of fixed columns begins in its line.
    int positionOf(std::size_t field) const
    {
        int position = 1;
        for (std::size_t before = 0; before <= field; ++before) {
            position = std::max(position, m_table.fields[before].start);
            if (before < field)
                position += widthOf(before);
        }
        return position - 1;
    }

    QString where(std::size_t field) const
    {
        return QStringLiteral("%1, row %2, %3").arg(m_object->name).arg(m_row + 1).arg(m_table.fields[field].name);
    }

    bool isMissing(const Expected& field) const
    {
        const auto index = static_cast<std::size_t>(m_row);
        if (field.kind == Expected::Coordinate)
            return field.flat || (field.numbers == m_object->z.get() && std::isnan((*field.numbers)[index]));
        if (field.kind == Expected::Absent || field.columns > 0)
            return field.kind == Expected::Absent;
        if (field.numbers)
            return field.missing && (*field.missing)[index] != 0;
        return (field.values ? (*field.values)[m_row] : field.constant).isNull();
    }

    /// What stands for a missing value.
    QString nullText(std::size_t index, const Expected& field) const
    {
        const bool isNumber = field.kind == Expected::Coordinate || field.kind == Expected::Number;
        const bool isWhole = field.attribute == AttributeKind::Integer || field.attribute == AttributeKind::Boolean;
        if (field.kind == Expected::Text && !isWhole)
            return field.attribute == AttributeKind::Text ? inQuotes(QString()) : QString();
        if (field.kind == Expected::Coordinate && m_blankHeights)
            return {};
        if (m_settings.writeNullValue)
            return m_settings.nullValue;
        if (field.kind == Expected::Absent)
            return {};
        return QString::number(0.0, 'f', isNumber ? m_table.fields[index].precision : 0);
    }

    /// A text as it stands between separators.
    QString inQuotes(const QString& text) const
    {
        using Quoting = AsciiExportSettings::Quoting;
        if (m_inColumns || m_settings.quoting == Quoting::None)
            return text;
        const bool needed = text.contains(m_separator) || text.contains(QLatin1Char('"'));
        if (m_settings.quoting == Quoting::Needed && (text.isEmpty() || !needed))
            return text;
        return QLatin1Char('"') + QString(text).replace(QStringLiteral("\""), QStringLiteral("\"\""))
               + QLatin1Char('"');
    }

    /// The characters of a field that is not a number with decimals.
    QString wantedText(const Expected& field) const
    {
        if (field.columns > 0)
            return QString::number((field.isRowIndex ? m_row / field.columns : m_row % field.columns) + 1);
        const QVariant& value = field.values ? (*field.values)[m_row] : field.constant;
        if (field.attribute == AttributeKind::Color)
            return value.value<QColor>().name();
        if (field.attribute == AttributeKind::Text)
            return inQuotes(m_guard.guarded(inOneLine(value.toString())));
        return QString::number(value.toLongLong());
    }

    /// The characters of a field in a separated line, from \a position on, which moves behind the separator. A text
    /// that has the separator in it is known by what it must be.
    QString nextField(const QString& line, int& position, bool last, const QString& wanted) const
    {
        const auto endsAt = [&](int end) {
            return last ? end == line.size() : line.midRef(end, m_separator.size()) == m_separator;
        };
        int end = position + wanted.size();
        if (line.midRef(position, wanted.size()) != wanted || !endsAt(end)) {
            end = last || m_separator.isEmpty() ? line.size() : line.indexOf(m_separator, position);
            end = end < 0 ? line.size() : end;
        }
        const QString text = line.mid(position, end - position);
        position = end + m_separator.size();
        return text;
    }

    void compareRow(const std::vector<Expected>& fields, const QString& line)
    {
        int position = 0;
        for (std::size_t index = 0; index < fields.size() && m_found.good(); ++index) {
            const Expected& field = fields[index];
            const bool missing = isMissing(field);
            QString wanted;
            if (missing)
                wanted = nullText(index, field);
            else if (field.kind == Expected::Text)
                wanted = wantedText(field);
            const bool last = index + 1 == fields.size();
            QString read;
            if (!m_inColumns) {
                read = nextField(line, position, last, wanted);
                if (last && position < line.size())
                    m_found.fail(QStringLiteral("%1: more follows it in its line").arg(where(index)));
            } else {
                read = line.mid(positionOf(index), widthOf(index)).trimmed();
                wanted = wanted.size() > widthOf(index) && widthOf(index) > 0
                             ? (wanted.left(widthOf(index) - 1) + QLatin1Char('*')).trimmed()
                             : wanted.trimmed();
            }
            compareField(index, field, missing, wanted, read);
        }
    }

    void compareField(std::size_t index, const Expected& field, bool missing, const QString& wanted,
                      const QString& read)
    {
        const auto place = [this, index] { return where(index); };
        if (missing)
            return m_found.compareMissing(read == wanted, read, place);
        if (field.kind == Expected::Text)
            return m_found.compareText(wanted, read, place);
        const double number =
            field.sign
            * (field.numbers ? (*field.numbers)[static_cast<std::size_t>(m_row)] : field.constant.toDouble());
        bool isNumber = false;
        const double shown = read.trimmed().toDouble(&isNumber);
        if (!isNumber)
            return m_found.fail(
                QStringLiteral("%1: \"%2\" was read instead of %3").arg(where(index), read.left(40)).arg(number));
        if (field.kind == Expected::Coordinate)
            m_found.compareCoordinate(number, shown, field.tolerance, place);
        else
            m_found.compareValue(number, shown, field.tolerance, place);
    }

    const PlannedFile& m_file;
    const AsciiTable& m_table;
    const AsciiExportSettings& m_settings;
    QTextStream& m_text;
    Verification& m_found;
    bool m_inColumns;
    QString m_separator;
    FormulaGuard m_guard;
    bool m_blankHeights;
    const ModelObject* m_object = nullptr;
    int m_row = 0;
};

/// Half of the last decimal of the coarsest coordinate.
Allowance allowanceOf(const PlannedFile& file, const AsciiTable& table)
{
    int decimals = 17;
    for (std::size_t field = 0; field < table.columns.size(); ++field) {
        const AsciiColumn::Source source = table.columns[field].source;
        if (source == AsciiColumn::X || source == AsciiColumn::Y || source == AsciiColumn::Z)
            decimals = std::min(decimals, table.fields[field].precision);
    }
    const ModelObject& first = *file.objects.front();
    const QString unit = crsUnit(first.crs);
    return Allowance::ofDecimals(decimals, unit.isEmpty() ? first.lengthUnit : unit);
}

} // namespace

Verification verifyAscii(const PlannedFile& file, const QString& path, const AsciiTable& table,
                         const AsciiExportSettings& settings)
{
    Verification found(QStringLiteral("a reader of tables of its own"), allowanceOf(file, table));
    QFile written(path);
    if (!written.open(QIODevice::ReadOnly)) {
        found.fail(QStringLiteral("it cannot be opened: %1").arg(written.errorString()));
        return found;
    }
    QTextStream text(&written);
    text.setCodec("UTF-8");
    TableReader(file, table, settings, text, found).read();
    return found;
}

} // namespace kpFormats
