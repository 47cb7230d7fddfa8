// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// An attribute as the first object that has it describes it.
struct AttributeDescription
{
    QString name;
    AttributeKind kind = AttributeKind::Text;
    QString unit;
};

/// The attributes of vertices, cells and whole objects, each name once, in the order first met.
KPFORMATS_EXPORT std::vector<AttributeDescription> attributesOf(const std::vector<const ModelObject*>& objects);
/// Their names.
KPFORMATS_EXPORT QStringList attributeNames(const std::vector<const ModelObject*>& objects);

} // namespace kpFormats
