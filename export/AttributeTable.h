// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

/// The chosen attributes as a table of HTML: those of the object and, unless \a vertex is negative, those of that
/// vertex. Missing values are left out; empty when nothing is left.
KPFORMATS_EXPORT QString attributeTable(const ModelObject& object, const ExportSelection& selection, int vertex);

} // namespace kpFormats
