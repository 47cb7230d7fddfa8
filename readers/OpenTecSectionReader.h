// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Whether the file begins as an OpenTecLink section.
KPFORMATS_EXPORT bool isOpenTecSection(const QString& path);
/// Loads the section of an OpenTecLink file: its trace on the map and what is drawn on it. Depths become elevations, an age
/// other than 0 an attribute. \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readOpenTecSection(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
