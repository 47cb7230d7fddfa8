// SPDX-License-Identifier: MIT
#include "app/jobs/AttributeNames.h"

#include <QSet>

namespace refhost
{

QStringList attributeNames(const std::vector<const ModelObject*>& objects)
{
    QStringList names;
    QSet<QString> known;
    const auto add = [&](const QString& name) {
        if (known.contains(name))
            return;
        known.insert(name);
        names.append(name);
    };
    for (const ModelObject* object : objects) {
        for (const AttributeColumn& column : object->vertexAttributes)
            add(column.name);
        if (object->cells) {
            for (const AttributeColumn& column : object->cells->cellAttributes)
                add(column.name);
        }
        for (const ObjectAttribute& attribute : object->objectAttributes)
            add(attribute.name);
    }
    return names;
}

} // namespace refhost
