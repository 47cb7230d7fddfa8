// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportSelection.h"

#include <QString>

namespace refhost
{

/// The chosen attributes as a table of HTML: those of the object and, unless \a vertex is negative, those of that
/// vertex. Missing values are left out; empty when nothing is left.
QString attributeTable(const ModelObject& object, const ExportSelection& selection, int vertex);

} // namespace refhost
