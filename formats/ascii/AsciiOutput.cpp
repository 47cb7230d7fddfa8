// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiOutput.h"

#include <algorithm>
#include <sstream>

namespace kpFormats
{

namespace
{

using Settings = AsciiExportSettings;
using Writer = kpBaseExport::MatrixDataAsciiExporter;

/// The writer's code of a separator.
int separatorCode(Settings::Separator separator)
{
    switch (separator) {
    case Settings::Separator::Blank:
        return 0;
    case Settings::Separator::Tab:
        return 1;
    case Settings::Separator::Comma:
        return 2;
    case Settings::Separator::Semicolon:
        return 3;
    case Settings::Separator::Custom:
        return 4;
    }
    return 2;
}

QString presetName(Settings::Preset preset)
{
    switch (preset) {
    case Settings::Preset::None:
        return {};
    case Settings::Preset::Surfer:
        return QStringLiteral("Surfer XYZ");
    case Settings::Preset::GsPlus:
        return QStringLiteral("GS+ XYZ");
    case Settings::Preset::ArcView:
        return QStringLiteral("ArcView XYZ");
    }
    return {};
}

/// A writer whose bytes stay in memory.
class MemoryWriter : public Writer
{
public:
    MemoryWriter() { blockStream = kpBaseExport::BlockStream(&m_bytes); }

    QByteArray bytes() const { return QByteArray::fromStdString(m_bytes.str()); }

private:
    std::stringbuf m_bytes;
};

template <typename Value>
std::shared_ptr<const std::vector<Value>> firstOf(const std::shared_ptr<const std::vector<Value>>& values, int rows)
{
    if (!values)
        return nullptr;
    return std::make_shared<const std::vector<Value>>(values->begin(), values->begin() + rows);
}

} // namespace

QString separatorText(const Settings& settings)
{
    if (settings.mode == Settings::Mode::Columns)
        return {};
    if (settings.preset == Settings::Preset::GsPlus)
        return QStringLiteral("\t");
    if (settings.preset != Settings::Preset::None)
        return QStringLiteral(",");
    static const QString texts[] = {QStringLiteral(" "), QStringLiteral("\t"), QStringLiteral(","),
                                    QStringLiteral(";")};
    return settings.separator == Settings::Separator::Custom ? settings.customSeparator
                                                             : texts[static_cast<int>(settings.separator)];
}

QString separatorFault(const Settings& settings)
{
    const bool custom = settings.mode == Settings::Mode::Separated && settings.separator == Settings::Separator::Custom
                        && settings.preset != Settings::Preset::GsPlus;
    const QString& text = settings.customSeparator;
    if (!custom)
        return {};
    if (text.isEmpty())
        return QStringLiteral("nothing would stand between values (give a text with separator=custom)");
    const bool numeral = std::any_of(text.begin(), text.end(), [](QChar sign) {
        return sign.isDigit() || sign == QLatin1Char('.') || sign == QLatin1Char('-') || sign == QLatin1Char('+')
               || sign == QLatin1Char('"') || sign == QLatin1Char('\n') || sign == QLatin1Char('\r');
    });
    return numeral
               ? QStringLiteral("\"%1\" would run together with numbers, quotes or lines (give another text)").arg(text)
               : QString();
}

void prepareWriter(Writer& writer, const AsciiTable& table, const Settings& settings)
{
    writer.fields = table.fields;
    writer.mode = settings.mode == Settings::Mode::Columns ? Writer::ColumnBased : Writer::FieldBased;
    writer.separator = separatorCode(settings.separator);
    writer.customSeparator = settings.customSeparator;
    writer.quoting = settings.quoting == Settings::Quoting::Needed ? Writer::Quoting::Needed
                     : settings.quoting == Settings::Quoting::All  ? Writer::Quoting::All
                                                                   : Writer::Quoting::None;
    writer.zIsElevation = settings.zIsElevation;
    writer.headerPending = settings.header;
    writer.writeNullValue = settings.writeNullValue;
    writer.nullValue = settings.nullValue;
    writer.insertLineBreaks = settings.lineBreaks;
}

void writeObject(Writer& writer, const ModelObject& object, const AsciiTable& table, const Settings& settings,
                 Findings& findings)
{
    fillRecord(*writer.geoObject(), object, table, settings, findings);
    writer.writeCustomHeader(writer.geoObject(), presetName(settings.preset));
    writer.writeGeo(writer.geoObject());
}

ModelObject firstRows(const ModelObject& object, int rows)
{
    const int count = std::min(rows, object.vertexCount());
    ModelObject first;
    first.name = object.name;
    first.type = object.type;
    first.set = object.set;
    first.hasZ = object.hasZ;
    first.grid = object.grid;
    first.x = firstOf(object.x, count);
    first.y = firstOf(object.y, count);
    first.z = firstOf(object.z, count);
    first.objectAttributes = object.objectAttributes;
    first.vertexAttributes.reserve(object.vertexAttributes.size());
    for (const AttributeColumn& column : object.vertexAttributes) {
        AttributeColumn part;
        part.name = column.name;
        part.kind = column.kind;
        part.unit = column.unit;
        part.numbers = firstOf(column.numbers, count);
        part.missing = firstOf(column.missing, count);
        part.values = column.values.mid(0, count);
        first.vertexAttributes.push_back(std::move(part));
    }
    return first;
}

QByteArray asciiPreview(const Settings& settings, const std::vector<const ModelObject*>& objects, int rows)
{
    if (objects.empty())
        return {};
    Findings unread;
    AsciiTable table = asciiTable(*settings.layout, objects, settings.mode == Settings::Mode::Columns, unread);
    guardNames(table, settings);
    MemoryWriter writer;
    prepareWriter(writer, table, settings);
    const ModelObject first = firstRows(*objects.front(), rows);
    if (first.vertexCount() > 0)
        writeObject(writer, first, table, settings, unread);
    return writer.bytes();
}

} // namespace kpFormats
