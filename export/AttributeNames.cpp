// SPDX-License-Identifier: MIT
#include "export/AttributeNames.h"

#include <QSet>

namespace kpFormats
{

std::vector<AttributeDescription> attributesOf(const std::vector<const ModelObject*>& objects)
{
    std::vector<AttributeDescription> attributes;
    QSet<QString> known;
    const auto add = [&](const auto& attribute) {
        if (known.contains(attribute.name))
            return;
        known.insert(attribute.name);
        attributes.push_back({attribute.name, attribute.kind, attribute.unit});
    };
    for (const ModelObject* object : objects) {
        for (const AttributeColumn& column : object->vertexAttributes)
            add(column);
        if (object->cells) {
            for (const AttributeColumn& column : object->cells->cellAttributes)
                add(column);
        }
        for (const ObjectAttribute& attribute : object->objectAttributes)
            add(attribute);
    }
    return attributes;
}

QStringList attributeNames(const std::vector<const ModelObject*>& objects)
{
    QStringList names;
    for (const AttributeDescription& attribute : attributesOf(objects))
        names.append(attribute.name);
    return names;
}

} // namespace kpFormats
