// SPDX-License-Identifier: MIT
#include "app/ui/ExportWizard.h"

#include "app/ui/HostContext.h"

#include <QSet>

namespace refhost
{

namespace
{

const char* typeNameOf(AttributeKind kind)
{
    switch (kind) {
    case AttributeKind::Real:
        return "real";
    case AttributeKind::Integer:
        return "integer";
    case AttributeKind::Boolean:
        return "boolean";
    case AttributeKind::Color:
        return "color";
    case AttributeKind::Text:
        return "text";
    }
    return "text";
}

} // namespace

ExportWizard::ExportWizard(HostContext& context, QWidget* parent)
    : QExportWizard(parent)
    , m_context(context)
{
    resize(900, 720);
}

void ExportWizard::availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>& list, bool, bool)
{
    QSet<QString> known;
    const auto add = [&](const QString& name, AttributeKind kind, const QString& unit) {
        if (known.contains(name))
            return;
        known.insert(name);
        list.append({name.toStdString(), typeNameOf(kind), unit.toStdString()});
    };
    for (const int id : selectedGeoIds()) {
        const ModelObject* object = m_context.model.find(id);
        if (!object)
            continue;
        for (const AttributeColumn& column : object->vertexAttributes)
            add(column.name, column.kind, column.unit);
        for (const ObjectAttribute& attribute : object->objectAttributes)
            add(attribute.name, attribute.kind, attribute.unit);
    }
}

} // namespace refhost
