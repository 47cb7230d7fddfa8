// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Whether the file begins as this program's deviation tables do.
KPFORMATS_EXPORT bool isDeviationTable(const QString& path);
/// Reads a deviation table of this program as a well: remarks with its name and unit, a row of names, rows of numbers, of
/// which X, Y and Z are the path and the others attributes. \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readDeviation(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
