// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Whether the file has the head and a first row of an RMS well.
KPFORMATS_EXPORT bool isRmsWell(const QString& path);
/// Reads RMS wells, blocked ones too, of which a file may hold several: the path, whose third column is depth, positive down, and the logs. A discrete log
/// becomes its codes and, as "NAME_name", what they stand for. -999 is a missing value.
/// The format: https://github.com/equinor/xtgeo (src/xtgeo/well/_well_io.py). \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readRmsWell(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
