// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Loads a file into the model: a model file (*.kpmodel), a raster or ZMap+ grid as grid surface, a mesh (*.off,
/// *.obj, *.stl, *.ply), VTK files (*.vtp, *.vtu, *.vti, *.vts, *.vtk), GOCAD objects (*.ts, *.pl, *.vs, *.gp), a
/// corner-point grid (*.grdecl), a table of collars when LoadOptions::survey is set, else whatever OGR reads.
/// \returns notes on what was passed over
/// \throws LoadError
KPFORMATS_EXPORT LoadNotes loadInto(Model& model, const QString& path, const LoadOptions& options = LoadOptions());

} // namespace kpFormats
