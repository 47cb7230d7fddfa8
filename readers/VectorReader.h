// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads any vector format that OGR reads, delimited text included. The points of a layer become one cloud with an
/// attribute per field (or one object each, for pins, posts and labels); each line or polygon becomes one object.
/// \returns notes on features that were passed over
/// \throws LoadError
KPFORMATS_EXPORT LoadNotes readVectors(Model& model, const QString& path, const LoadOptions& options);

/// Colour number \a index of the palette for objects that bring none.
KPFORMATS_EXPORT QColor paletteColor(int index);

} // namespace kpFormats
