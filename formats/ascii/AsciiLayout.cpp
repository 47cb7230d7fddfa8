// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiLayout.h"

#include "export/SettingsMap.h"
#include "host/data/FormatFile.h"
#include "spec/layout/FieldLayout.h"

#include <QJsonObject>
#include <QSet>

#include <algorithm>
#include <memory>

namespace kpFormats
{

namespace
{

using kpBaseExport::QESAttribute;

// What a line of text can be; a file that was edited by hand may say anything.
constexpr int lastColumn = 1000000;
constexpr int mostDecimals = 17;

/// The name under which a layout knows an attribute: those of coordinates and grid indices are taken.
QString layoutName(const QString& attribute)
{
    const bool taken =
        kpBaseExport::layout::isNonAttribute(attribute) || kpBaseExport::layout::isNonAttribute(attribute.toUpper());
    return taken ? attribute + QStringLiteral(" (attribute)") : attribute;
}

const char* typeOf(AttributeKind kind)
{
    switch (kind) {
    case AttributeKind::Real:
        return "double";
    case AttributeKind::Integer:
    case AttributeKind::Boolean:
        return "int";
    case AttributeKind::Text:
    case AttributeKind::Color:
        return "string";
    }
    return "string";
}

void requireSoundField(const QString& path, const QESAttribute& field)
{
    const bool columns = field.start() >= 0 && field.end() >= field.start() && field.end() <= lastColumn;
    if (!columns)
        throw SettingsError(QStringLiteral("%1: field \"%2\": columns %3 to %4 are none of 0 to %5 (correct the file)")
                                .arg(path, field.name())
                                .arg(field.start())
                                .arg(field.end())
                                .arg(lastColumn));
    if (field.precision() < 0 || field.precision() > mostDecimals)
        throw SettingsError(QStringLiteral("%1: field \"%2\": precision %3 is none of 0 to %4 (correct the file)")
                                .arg(path, field.name())
                                .arg(field.precision())
                                .arg(mostDecimals));
}

} // namespace

std::vector<OfferedField> offeredFields(const std::vector<const ModelObject*>& objects)
{
    std::vector<OfferedField> offered;
    QSet<QString> known;
    const auto add = [&](const QString& name, const QString& attribute, AttributeKind kind) {
        if (known.contains(name))
            return;
        known.insert(name);
        offered.push_back({name, attribute, kind});
    };
    for (const char* name : {"X", "Y", "Z"})
        add(QString::fromLatin1(name), QString(), AttributeKind::Real);
    const bool grids =
        std::any_of(objects.begin(), objects.end(), [](const ModelObject* object) { return object->grid.has_value(); });
    if (grids) {
        for (const char* name : {"i", "j"})
            add(QString::fromLatin1(name), QString(), AttributeKind::Integer);
    }
    for (const ModelObject* object : objects) {
        for (const AttributeColumn& column : object->vertexAttributes)
            add(layoutName(column.name), column.name, column.kind);
        for (const ObjectAttribute& attribute : object->objectAttributes)
            add(layoutName(attribute.name), attribute.name, attribute.kind);
    }
    return offered;
}

QESAttribute editorField(const OfferedField& field, int decimals)
{
    QESAttribute attribute;
    attribute.name() = field.name;
    attribute.type() = QString::fromLatin1(typeOf(field.kind));
    attribute.width() = field.kind == AttributeKind::Text ? 12 : 10;
    attribute.precision() = field.kind == AttributeKind::Real ? decimals : 0;
    if (field.attribute.isEmpty()) {
        kpBaseExport::layout::nonAttribute(field.name, attribute);
        // The standard columns are those of a layout of these alone; here each is placed where it is added.
        attribute.start() = 0;
        attribute.end() = 0;
        if (field.kind == AttributeKind::Real)
            attribute.precision() = decimals;
    }
    return attribute;
}

AsciiLayout asciiLayoutOf(const FormatFile& file)
{
    AsciiLayout layout;
    layout.mode = file.type() == FormatFile::FieldBased ? AsciiExportSettings::Mode::Separated
                                                        : AsciiExportSettings::Mode::Columns;
    for (int index = 0; index < file.size(); ++index) {
        impAttribute record;
        file.field(index).getAttribute(record);
        const QESAttribute field(record);
        layout.fields.insert(field.name(), field);
    }
    const QJsonObject settings = file.unknown().value(QStringLiteral("settings")).toObject();
    for (auto setting = settings.begin(); setting != settings.end(); ++setting)
        layout.settings.append({setting.key(), setting.value().toVariant().toString()});
    return layout;
}

AsciiLayout readAsciiLayout(const QString& path)
{
    QString error;
    std::unique_ptr<FormatFile> file;
    if (path.endsWith(QLatin1String(".fmt"))) {
        file.reset(FormatFile::readLandmark(path, &error));
    } else {
        file.reset(FormatFile::read(path, &error));
        if (!file && !path.endsWith(QLatin1String(".klf")))
            file.reset(FormatFile::readLandmark(path));
    }
    if (!file)
        throw SettingsError(QStringLiteral("%1: %2 (correct the layout or save it anew)").arg(path, error));
    AsciiLayout layout = asciiLayoutOf(*file);
    for (const QESAttribute& field : qAsConst(layout.fields))
        requireSoundField(path, field);
    if (layout.fields.isEmpty())
        throw SettingsError(QStringLiteral("%1: the layout has no fields (add some in the wizard)").arg(path));
    return layout;
}

QVector<QESAttribute> fieldsFor(const AsciiLayout& layout, const std::vector<OfferedField>& offered)
{
    QSet<QString> names;
    for (const OfferedField& field : offered)
        names.insert(field.name);
    QVector<QESAttribute> fields = kpBaseExport::layout::orderedFields(
        layout.fields, [&names](const QString& name) { return names.contains(name); });
    kpBaseExport::layout::layOut(fields);
    return fields;
}

} // namespace kpFormats
