// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"

namespace kpFormats
{

/// The chosen section of that name; null when there is none.
const ModelObject* findSection(const ExportSelection& selection, const QString& name);
/// The names in a list separated by commas. A section whose own name has commas is found too.
QStringList sectionNamesIn(const QString& list, const ExportSelection& selection);

} // namespace kpFormats
