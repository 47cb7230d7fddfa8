// SPDX-License-Identifier: MIT
#pragma once

#include "app/model/Model.h"
#include "app/readers/LoadOptions.h"

#include <QJsonArray>

namespace refhost
{

/// Cuts the cross-sections that a model file lists through the objects that the model holds, and adds them to it. An
/// entry is {"name": ..., "trace": [[x, y], ...], "set", "color", "crs", "objects": [names]}. Without "crs" a section
/// takes that of the first object it can cut; only objects of the same coordinate system and length unit are cut.
/// \returns notes on sections that meet nothing
/// \throws LoadError naming the section
LoadNotes readSections(Model& model, const QString& path, const QJsonArray& sections);

} // namespace refhost
