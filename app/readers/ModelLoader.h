// SPDX-License-Identifier: MIT
#pragma once

#include "app/model/Model.h"
#include "app/readers/LoadOptions.h"

namespace refhost
{

/// Loads a file into the model: a model file (*.kpmodel), a raster or ZMap+ grid as grid surface, a mesh (*.off,
/// *.obj), GOCAD objects (*.ts, *.pl, *.vs, *.gp), a corner-point grid (*.grdecl), a table of collars when
/// LoadOptions::survey is set, else whatever OGR reads.
/// \returns notes on what was passed over
/// \throws LoadError
LoadNotes loadInto(Model& model, const QString& path, const LoadOptions& options = LoadOptions());

} // namespace refhost
