// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiLayout.h"

#include "spec/layout/FieldLayout.h"

#include <QSet>

#include <algorithm>

namespace kpFormats
{

namespace
{

using kpBaseExport::QESAttribute;

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

QESAttribute editorField(const OfferedField& field, int wanted)
{
    constexpr int usual = 3;
    const int decimals = wanted >= 0 ? wanted : usual;
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

QVector<QESAttribute> fieldsFor(const AsciiLayout& layout, const std::vector<OfferedField>& offered)
{
    QSet<QString> names;
    for (const OfferedField& field : offered)
        names.insert(field.name);
    QVector<QESAttribute> fields = kpBaseExport::layout::orderedFields(
        layout.fields, [&names](const QString& name) { return names.contains(name); });
    for (QESAttribute& field : fields) {
        const bool real = std::any_of(offered.begin(), offered.end(), [&field](const OfferedField& one) {
            return one.name == field.name() && one.kind == AttributeKind::Real;
        });
        if (!layout.decimals || !real)
            continue;
        field.end() = std::max(field.start(), field.end() + *layout.decimals - field.precision());
        field.precision() = *layout.decimals;
    }
    kpBaseExport::layout::layOut(fields);
    return fields;
}

} // namespace kpFormats
