// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Whether the file has the head of a ZMap+ grid.
KPFORMATS_EXPORT bool isZMapGrid(const QString& path);
/// Reads a ZMap+ grid: a head of three lines between two "@", perhaps a line of remarks that begins with "+", then the
/// columns from the west, each from the north, in fields of one width. The limits are those of the outermost nodes.
/// \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readZMap(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
