// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Whether the file begins as an Irap classic grid does, text or binary.
KPFORMATS_EXPORT bool isIrapGrid(const QString& path);
/// Reads an Irap classic grid, text or binary, rotated ones too.
/// \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readIrapGrid(Model& model, const QString& path, const LoadOptions& options);
/// Reads Irap polygons, x, y and z a line, each ended by a line of "999 999 999": closed ones as polygons, others as
/// lines.
/// \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readIrapPolygons(Model& model, const QString& path, const LoadOptions& options);
/// Reads Irap points, x, y and z a line. A line of "999 999 999" is none.
/// \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readIrapPoints(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
