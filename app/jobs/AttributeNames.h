// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportSelection.h"

namespace refhost
{

/// An attribute as the first object that has it describes it.
struct AttributeDescription
{
    QString name;
    AttributeKind kind = AttributeKind::Text;
    QString unit;
};

/// The attributes of vertices, cells and whole objects, each name once, in the order first met.
std::vector<AttributeDescription> attributesOf(const std::vector<const ModelObject*>& objects);
/// Their names.
QStringList attributeNames(const std::vector<const ModelObject*>& objects);

} // namespace refhost
