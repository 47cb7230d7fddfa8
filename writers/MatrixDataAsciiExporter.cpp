// SPDX-License-Identifier: MIT
#include "writers/MatrixDataAsciiExporter.h"

#include "host/data/AbstractProgress.h"
#include "writers/QuotedText.h"
#include "writers/VertexCheck.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace kpBaseExport
{

namespace
{

constexpr std::size_t blockSize = std::size_t{2048} * 1024;
constexpr std::size_t longestPlainSeparator = 8; // copied as one word
constexpr int rowsBetweenReports = 4096;

struct PresetHeader
{
    const char* name;
    const char* fixedText; ///< covers the first three fields
    const char* before;    ///< before each further field
    const char* after;
    bool dashForBlank;
    int separator;
};

constexpr PresetHeader presetHeaders[] = {
    {"Surfer XYZ", "Xdata Ydata Z1data", ",", "", true, 2},
    {"GS+ XYZ", "m east, m north,", ", ", "", false, 1},
    {"ArcView XYZ", "X data,Y data,Z1 data", ";\"", "\"", false, 2},
};
constexpr std::size_t fieldsInFixedText = 3;

/// 0 for a field that ends before it starts: it has no place in the line.
int widthOf(const MatrixDataExporter::FieldInfo& field)
{
    const qint64 width = static_cast<qint64>(field.end) - field.start + 1;
    return static_cast<int>(std::clamp<qint64>(width, 0, std::numeric_limits<int>::max()));
}

/// \a text right-aligned in \a width characters; what is longer loses its end to a "*".
QString fitted(const QString& text, int width)
{
    if (text.size() <= width)
        return text.rightJustified(width);
    if (width == 0)
        return {};
    QString kept = text.left(width - 1);
    // Half a character outside the basic plane is none.
    if (!kept.isEmpty() && qAsConst(kept).back().isHighSurrogate())
        kept.chop(1);
    return (kept + QLatin1Char('*')).rightJustified(width);
}

const kpBase::MatrixData* vertexMatrix(const GeoObject::MatrixList& vertices, std::size_t index)
{
    return index < vertices.size() ? vertices[index] : nullptr;
}

} // namespace

MatrixDataAsciiExporter::MatrixDataAsciiExporter(const QString& file, kpBase::AbstractProgress* reporter)
    : MatrixDataExporter(file, reporter)
{
}

bool MatrixDataAsciiExporter::cancelled() const
{
    return m_cancelled;
}

MatrixDataAsciiExporter::Source MatrixDataAsciiExporter::sourceOf(const FieldInfo& field,
                                                                  const kpBase::MatrixData* matrix) const
{
    Source source;
    source.matrix = matrix;
    if (matrix && matrix->valueType == kpBase::MatrixData::Double)
        source.block = matrix->doubleColumn(0);
    source.negated = !zIsElevation && field.name.compare(QLatin1String("z"), Qt::CaseInsensitive) == 0;
    return source;
}

void MatrixDataAsciiExporter::buildFieldData(const GeoObject* object)
{
    m_fieldData.clear();
    std::vector<Source> sources;
    const GeoObject::MatrixList& vertices = object->vertexData();
    for (const FieldInfo& field : fields) {
        const kpBase::MatrixData* matrix = nullptr;
        if (field.name == QLatin1String("x")) {
            matrix = vertexMatrix(vertices, 1);
        } else if (field.name == QLatin1String("y")) {
            matrix = vertexMatrix(vertices, 2);
        } else if (field.name == QLatin1String("z")) {
            matrix = vertexMatrix(vertices, 3);
        } else {
            const GeoObject::MatrixList& attributes = object->vertexAttributeData();
            const auto found =
                std::find_if(attributes.begin(), attributes.end(),
                             [&field](const kpBase::MatrixData* candidate) { return candidate->name() == field.name; });
            if (found != attributes.end())
                matrix = *found;
        }
        sources.push_back(sourceOf(field, matrix));
    }
    m_fieldData = std::move(sources);
}

/// Runs what writes of one object. The object may be gone afterwards, so nothing keeps pointing into it; and when its
/// matrices throw, what is whole goes to the file and the rest is dropped, so that the next object starts a line.
template <typename Write>
void MatrixDataAsciiExporter::writeOf(const GeoObject* object, Write write)
{
    m_whole = 0;
    try {
        buildFieldData(object);
        write();
    } catch (...) {
        m_fieldData.clear();
        blockStream.text().resize(m_whole);
        flushRows(0);
        throw;
    }
    m_fieldData.clear();
    flushRows(0);
}

QString MatrixDataAsciiExporter::headerName(std::size_t field) const
{
    const kpBase::MatrixData* matrix = m_fieldData[field].matrix;
    return matrix ? matrix->name() : fields[field].name;
}

QString MatrixDataAsciiExporter::quoted(const QString& text) const
{
    if (quoting == Quoting::None || mode != FieldBased || (text.isEmpty() && quoting == Quoting::Needed))
        return text;
    const bool needed = needsQuotes(text, QString::fromStdString(separatorText()));
    return needed || quoting != Quoting::Needed ? inQuotes(text) : text;
}

std::string MatrixDataAsciiExporter::separatorText() const
{
    switch (separator) {
    case 0:
        return " ";
    case 1:
        return "\t";
    case 2:
        return ",";
    case 3:
        return ";";
    case 4:
        return customSeparator.toStdString();
    default:
        return {};
    }
}

void MatrixDataAsciiExporter::writeHeader(const GeoObject* object)
{
    if (!headerPending)
        return;
    writeOf(object, [this] { appendHeader(); });
    headerPending = false;
}

void MatrixDataAsciiExporter::appendHeader()
{
    if (mode == ColumnBased) {
        qint64 position = 1;
        for (std::size_t index = 0; index < fields.size(); ++index) {
            for (; position < fields[index].start; ++position)
                blockStream.text() += ' ';
            const int width = widthOf(fields[index]);
            blockStream.text() += fitted(headerName(index), width).toStdString();
            position += width;
        }
    } else if (mode == FieldBased) {
        const std::string between = separatorText();
        for (std::size_t index = 0; index < fields.size(); ++index) {
            if (index > 0)
                blockStream.text() += between;
            blockStream.text() += quoted(headerName(index)).toStdString();
        }
    }
    blockStream.text() += '\n';
}

void MatrixDataAsciiExporter::writeCustomHeader(const GeoObject* object, const QString& preset)
{
    const auto header =
        std::find_if(std::begin(presetHeaders), std::end(presetHeaders),
                     [&preset](const PresetHeader& candidate) { return preset == QLatin1String(candidate.name); });
    if (header == std::end(presetHeaders)) {
        writeHeader(object);
        return;
    }
    if (!headerPending)
        return;
    writeOf(object, [this, header] {
        blockStream.text() += header->fixedText;
        for (std::size_t index = fieldsInFixedText; index < fields.size(); ++index) {
            QString name = headerName(index);
            if (header->dashForBlank)
                name.replace(QLatin1Char(' '), QLatin1Char('-'));
            blockStream.text() += header->before + name.toStdString() + header->after;
        }
        blockStream.text() += '\n';
    });
    headerPending = false;
    separator = header->separator;
}

void MatrixDataAsciiExporter::writeGeo(const GeoObject* object)
{
    m_cancelled = false;
    if (insertLineBreaks && !object->name.empty()) {
        blockStream.text() += object->name + '\n';
        blockStream.flush();
    }
    requireVertexData(*object);
    writeOf(object, [this, object] {
        appendRows(*object);
        if (insertLineBreaks)
            blockStream.text() += '\n';
    });
}

void MatrixDataAsciiExporter::appendRows(const GeoObject& object)
{
    if (mode != ColumnBased && mode != FieldBased)
        return;
    const int rows = object.vertexData().front()->rowCount();
    const std::string between = separatorText();
    const bool plain = preparePlainRows(rows, between);
    m_lastPercent = 0;
    for (int start = 0; start < rows; start += rowsBetweenReports) {
        if (reportRows && progress && !reportRow(start, rows))
            break;
        const int end = std::min(start + rowsBetweenReports, rows);
        for (int row = start; row < end;) {
            if (plain)
                row = appendPlainRows(row, end, between);
            if (row < end) {
                joinPlainRows();
                m_whole = blockStream.text().size();
                appendRow(row, between);
                m_whole = blockStream.text().size();
                ++row;
            }
            flushRows(blockSize);
        }
    }
    joinPlainRows();
}

/// Whether rows are nothing but numbers from memory, joined by a separator. Lists their columns and makes room for
/// appendPlainRows() then.
bool MatrixDataAsciiExporter::preparePlainRows(int rows, const std::string& separatorChars)
{
    m_plainColumns.clear();
    if (mode != FieldBased || m_fieldData.empty() || separatorChars.size() > longestPlainSeparator)
        return false;
    for (std::size_t index = 0; index < fields.size(); ++index) {
        const Source& source = m_fieldData[index];
        if (!source.block.values)
            return false;
        const int precision = fields[index].precision;
        m_plainColumns.push_back(
            {source.block.values, source.block.missing, fixedWriter(precision), precision, source.negated});
    }
    m_plainNull = nullValue.toStdString();
    const std::size_t longestValue = std::max(static_cast<std::size_t>(longestFastNumber), m_plainNull.size());
    const std::size_t longestRow = fields.size() * (longestValue + longestPlainSeparator);
    const std::size_t room = std::min(blockSize, static_cast<std::size_t>(rows) * longestRow) + longestRow;
    m_plainRows.resize(std::max(m_plainRows.size(), room));
    return true;
}

/// Rows from \a row on as appendRow() writes them, each composed in one piece. Stops at \a end and before a row in
/// which a number needs the long way.
/// \returns the row after the last one
int MatrixDataAsciiExporter::appendPlainRows(int row, int end, const std::string& separatorChars)
{
    char padded[longestPlainSeparator] = {};
    separatorChars.copy(padded, sizeof padded);
    char* const rows = m_plainRows.data();
    char* rowEnd = rows + m_plainSize;
    for (; row < end; ++row) {
        if (m_plainSize >= blockSize) {
            flushRows(0);
            rowEnd = rows;
        }
        char* out = rowEnd;
        for (const PlainColumn& column : m_plainColumns) {
            const bool missing = column.missing && column.missing[row] != 0;
            if (missing && writeNullValue) {
                out = std::copy(m_plainNull.begin(), m_plainNull.end(), out);
            } else {
                const double number = missing ? 0.0 : column.values[row];
                out = column.write(out, column.negated ? -number : number, column.precision);
                if (!out)
                    return row;
            }
            std::memcpy(out, padded, sizeof padded);
            out += separatorChars.size();
        }
        out -= separatorChars.size();
        *out++ = '\n';
        rowEnd = out;
        m_plainSize = static_cast<std::size_t>(rowEnd - rows);
    }
    return row;
}

void MatrixDataAsciiExporter::joinPlainRows()
{
    blockStream.text().append(m_plainRows.data(), m_plainSize);
    m_plainSize = 0;
}

void MatrixDataAsciiExporter::appendRow(int row, const std::string& separatorChars)
{
    if (mode == ColumnBased) {
        qint64 position = 1;
        for (std::size_t index = 0; index < fields.size(); ++index) {
            for (; position < fields[index].start; ++position)
                blockStream.text() += ' ';
            position += appendValue(fields[index], m_fieldData[index], row);
        }
    } else {
        for (std::size_t index = 0; index < fields.size(); ++index) {
            if (index > 0)
                blockStream.text() += separatorChars;
            appendValue(fields[index], m_fieldData[index], row);
        }
    }
    blockStream.text() += '\n';
}

bool MatrixDataAsciiExporter::reportRow(int row, int rows)
{
    const auto percent = static_cast<int>(100LL * row / rows);
    if (percent != m_lastPercent) {
        m_lastPercent = percent;
        progress->progressChanged(percent);
    }
    m_cancelled = progress->isCancelled();
    return !m_cancelled;
}

int MatrixDataAsciiExporter::writeValue(const FieldInfo& field, const kpBase::MatrixData* source, int row)
{
    const int length = appendValue(field, sourceOf(field, source), row);
    flushRows(0);
    return length;
}

int MatrixDataAsciiExporter::appendValue(const FieldInfo& field, const Source& source, int row)
{
    if (source.matrix && source.matrix->valueType == kpBase::MatrixData::Double) {
        bool missing = false;
        double number = 0.0;
        if (source.block.values) {
            missing = source.block.missing && source.block.missing[row] != 0;
            number = missing ? 0.0 : source.block.values[row];
        } else {
            const QVariant cell = source.matrix->value(row, 0);
            missing = cell.isNull();
            number = cell.toDouble();
        }
        if (!(missing && writeNullValue)) {
            const std::size_t start = blockStream.text().size();
            appendFixed(blockStream.text(), source.negated ? -number : number, field.precision);
            return finishAscii(field, start);
        }
    }
    QString text;
    appendText(source, row, text);
    // Coordinates may come as texts too.
    static const QStringList coordinates{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")};
    const bool isText = source.matrix && source.matrix->valueType == kpBase::MatrixData::String;
    return finish(field, isText && !coordinates.contains(field.name) ? quoted(text) : text);
}

/// Everything but a number that is there.
void MatrixDataAsciiExporter::appendText(const Source& source, int row, QString& text) const
{
    if (!source.matrix) {
        if (writeNullValue)
            text = nullValue;
        return;
    }
    const QVariant cell = source.matrix->value(row, 0);
    switch (source.matrix->valueType) {
    case kpBase::MatrixData::Int:
        text = QString::number(cell.toInt());
        if (cell.isNull() && writeNullValue)
            text = nullValue;
        break;
    case kpBase::MatrixData::Double:
        text = nullValue;
        break;
    case kpBase::MatrixData::String:
        text = cell.toString();
        break;
    case kpBase::MatrixData::Color:
        text = source.matrix->colorHexaString(row, 0);
        break;
    default:
        break;
    }
}

int MatrixDataAsciiExporter::finish(const FieldInfo& field, const QString& text)
{
    if (mode == ColumnBased) {
        const int width = widthOf(field);
        blockStream.text() += fitted(text, width).toStdString();
        return width;
    }
    if (mode == FieldBased)
        blockStream.text() += text.toStdString();
    return text.size();
}

/// The same for a text of ASCII characters that stands at the end of the block already.
int MatrixDataAsciiExporter::finishAscii(const FieldInfo& field, std::size_t start)
{
    const auto length = static_cast<int>(blockStream.text().size() - start);
    if (mode == FieldBased)
        return length;
    if (mode != ColumnBased) {
        blockStream.text().resize(start);
        return length;
    }
    const int width = widthOf(field);
    if (length > width) {
        blockStream.text().resize(start + static_cast<std::size_t>(std::max(width - 1, 0)));
        if (width > 0)
            blockStream.text() += '*';
    } else {
        blockStream.text().insert(start, static_cast<std::size_t>(width - length), ' ');
    }
    return width;
}

void MatrixDataAsciiExporter::flushRows(std::size_t limit)
{
    if (blockStream.text().size() + m_plainSize <= limit)
        return;
    blockStream.write(m_plainRows.data(), m_plainSize);
    m_plainSize = 0;
    m_whole = 0;
}

} // namespace kpBaseExport
