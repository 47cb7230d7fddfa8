// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

#include <QJsonArray>

namespace kpFormats
{

/// Cuts the cross-sections that a model file lists through the objects that the model holds, and adds them to it. An
/// entry is {"name": ..., "trace": [[x, y], ...], "set", "color", "crs", "objects": [names]}. Without "crs" a section
/// takes that of the first object it can cut; only objects of the same coordinate system and length unit are cut.
/// \returns notes on sections that meet nothing
/// \throws LoadError naming the section
KPFORMATS_EXPORT LoadNotes readSections(Model& model, const QString& path, const QJsonArray& sections);

} // namespace kpFormats
