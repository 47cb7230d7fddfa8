// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads a band of a raster as a grid surface, the others as attributes of its nodes, with the scale and offset that the
/// file gives them. Nodes lie at the centres of the pixels, row 0 in the south; a pixel without data becomes a node whose
/// z is NaN. LoadOptions::layer names one data set of a file that holds several.
/// \throws LoadError
KPFORMATS_EXPORT LoadNotes readGrid(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
