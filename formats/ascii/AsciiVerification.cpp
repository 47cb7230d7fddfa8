// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiVerification.h"

#include "formats/ascii/AsciiOutput.h"

#include <QFile>
#include <QLocale>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace kpFormats
{

namespace
{

/// A field that can be compared: numbers of one object and how they are written.
struct Expected
{
    std::size_t field = 0;
    const std::vector<double>* numbers = nullptr;
    const std::vector<unsigned char>* missing = nullptr;
    double sign = 1.0;
    double tolerance = 0.0;
    bool coordinate = false;
    bool flat = false;
};

class TableReader
{
public:
    TableReader(const PlannedFile& file, const AsciiTable& table, const AsciiExportSettings& settings,
                QTextStream& text)
        : m_file(file)
        , m_table(table)
        , m_settings(settings)
        , m_text(text)
        , m_separator(separatorText(settings))
    {
    }

    Verification read()
    {
        m_found.reader = QStringLiteral("a reader of tables of its own");
        try {
            if (m_settings.header)
                m_text.readLine();
            for (const ModelObject* object : m_file.objects)
                readObject(*object);
            if (!m_text.readLine().isNull())
                fail(QStringLiteral("there are more lines than vertices"));
        } catch (const std::runtime_error& error) {
            m_found.fault = QString::fromUtf8(error.what());
        }
        return m_found;
    }

private:
    [[noreturn]] static void fail(const QString& what) { throw std::runtime_error(what.toStdString()); }

    void readObject(const ModelObject& object)
    {
        if (m_settings.lineBreaks && !object.name.simplified().isEmpty()
            && m_text.readLine() != object.name.simplified())
            fail(QStringLiteral("%1 does not begin with its name").arg(object.name));
        const std::vector<Expected> fields = expected(object);
        for (int row = 0; row < object.vertexCount(); ++row) {
            const QString line = m_text.readLine();
            if (line.isNull())
                fail(QStringLiteral("%1 ends at row %2 of %3").arg(object.name).arg(row).arg(object.vertexCount()));
            compare(object, fields, row, line);
            ++m_found.count;
        }
        if (m_settings.lineBreaks && !m_text.readLine().isEmpty())
            fail(QStringLiteral("%1 is not followed by an empty line").arg(object.name));
    }

    std::vector<Expected> expected(const ModelObject& object) const
    {
        std::vector<Expected> fields;
        for (std::size_t field = 0; field < m_table.columns.size(); ++field) {
            Expected one;
            one.field = field;
            one.tolerance = 0.5000001 * std::pow(10.0, -m_table.fields[field].precision);
            const AsciiColumn& column = m_table.columns[field];
            if (column.source == AsciiColumn::X)
                one.numbers = object.x.get();
            else if (column.source == AsciiColumn::Y)
                one.numbers = object.y.get();
            else if (column.source == AsciiColumn::Z)
                one.numbers = object.z.get();
            one.coordinate = one.numbers != nullptr;
            one.flat = column.source == AsciiColumn::Z && !object.hasZ;
            if (column.source == AsciiColumn::Z && !m_settings.zIsElevation)
                one.sign = -1.0;
            for (const AttributeColumn& attribute : object.vertexAttributes) {
                if (column.source == AsciiColumn::Attribute && attribute.name == column.attribute
                    && attribute.kind == AttributeKind::Real) {
                    one.numbers = attribute.numbers.get();
                    one.missing = attribute.missing.get();
                }
            }
            if (one.numbers)
                fields.push_back(one);
        }
        return fields;
    }

    /// The text of each field; null where a text with the separator in it leaves that open.
    QStringList split(const QString& line) const
    {
        const auto count = static_cast<int>(m_table.fields.size());
        QStringList texts;
        if (m_settings.mode == AsciiExportSettings::Mode::Columns) {
            int position = 1;
            for (const auto& field : m_table.fields) {
                position = std::max(position, field.start);
                const int width = std::max(field.end - field.start + 1, 0);
                texts.append(line.mid(position - 1, width).trimmed());
                position += width;
            }
            return texts;
        }
        texts = m_separator.isEmpty() ? QStringList(line) : line.split(m_separator);
        if (texts.size() <= count)
            return texts;
        const auto isNumber = [this](int field) {
            return m_table.columns[static_cast<std::size_t>(field)].source != AsciiColumn::Attribute;
        };
        QStringList sure;
        for (int field = 0; field < count; ++field)
            sure.append(QString());
        for (int field = 0; field < count && isNumber(field); ++field)
            sure[field] = texts[field];
        for (int field = count - 1; field >= 0 && isNumber(field); --field)
            sure[field] = texts[texts.size() - count + field];
        return sure;
    }

    void compare(const ModelObject& object, const std::vector<Expected>& fields, int row, const QString& line)
    {
        const QStringList texts = split(line);
        for (const Expected& field : fields) {
            const auto index = static_cast<std::size_t>(row);
            const QString text = texts.value(static_cast<int>(field.field));
            if (text.isNull() && texts.size() == static_cast<int>(m_table.fields.size()))
                continue;
            const double wanted = (*field.numbers)[index];
            const bool absent = field.flat || (field.coordinate && std::isnan(wanted))
                                || (field.missing && (*field.missing)[index] != 0);
            bool isNumber = false;
            const double read = text.trimmed().toDouble(&isNumber);
            if (absent) {
                if (text.trimmed()
                    != (m_settings.writeNullValue ? m_settings.nullValue
                                                  : QString::number(0.0, 'f', m_table.fields[field.field].precision)))
                    differ(object, field, row, text);
                continue;
            }
            const double error = std::abs(read - field.sign * wanted);
            const double allowed = field.tolerance + std::abs(wanted) * 1e-15;
            if (!isNumber
                || !(error <= allowed || read == field.sign * wanted || (std::isnan(read) && std::isnan(wanted))))
                differ(object, field, row, text);
            if (field.coordinate && std::isfinite(error))
                m_found.worstError = std::max(m_found.worstError, error);
        }
    }

    [[noreturn]] void differ(const ModelObject& object, const Expected& field, int row, const QString& text) const
    {
        fail(QStringLiteral("row %1 of %2 has \"%3\" for %4, which is %5")
                 .arg(row + 1)
                 .arg(object.name, text.trimmed().left(40), m_table.fields[field.field].name)
                 .arg(QString::number(field.sign * (*field.numbers)[static_cast<std::size_t>(row)], 'g',
                                      QLocale::FloatingPointShortest)));
    }

    const PlannedFile& m_file;
    const AsciiTable& m_table;
    const AsciiExportSettings& m_settings;
    QTextStream& m_text;
    QString m_separator;
    Verification m_found;
};

} // namespace

Verification verifyAscii(const PlannedFile& file, const QString& path, const AsciiTable& table,
                         const AsciiExportSettings& settings)
{
    QFile written(path);
    if (!written.open(QIODevice::ReadOnly))
        return {QStringLiteral("a reader of tables of its own"), 0, 0.0,
                QStringLiteral("it cannot be opened: %1").arg(written.errorString())};
    QTextStream text(&written);
    text.setCodec("UTF-8");
    return TableReader(file, table, settings, text).read();
}

} // namespace kpFormats
