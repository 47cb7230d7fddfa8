// SPDX-License-Identifier: MIT
#pragma once

#include "app/model/Model.h"
#include "app/readers/LoadOptions.h"

namespace refhost
{

/// Reads any vector format that OGR reads, delimited text included. The points of a layer become one cloud with an
/// attribute per field (or one object each, for pins, posts and labels); each line or polygon becomes one object.
/// \returns notes on features that were passed over
/// \throws LoadError
LoadNotes readVectors(Model& model, const QString& path, const LoadOptions& options);

/// Colour number \a index of the palette for objects that bring none.
QColor paletteColor(int index);

} // namespace refhost
