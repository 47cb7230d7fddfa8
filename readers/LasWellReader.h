// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Whether a file is a well log of its own, and not one of the same ending that holds points of a laser scanner.
KPFORMATS_EXPORT bool isLasLog(const QString& path);
/// Reads a LAS file as a well: along its curves X, Y and Z; else straight down from the place X, Y and the elevation EREF
/// (or EKB, KB) of depth 0 that its head names. A log that says nothing of its place is one of LoadOptions::logs.
/// \throws LoadError
KPFORMATS_EXPORT LoadNotes readLasWell(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
