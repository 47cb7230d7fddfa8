// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Verification.h"
#include "formats/vtk/VtkFile.h"

namespace kpFormats
{

/// Reads a VTK XML file with the program's reader and compares every position, cell, value, text, name, unit and system
/// with the objects that it was written from.
Verification verifyVtk(VtkKind kind, const std::vector<const ModelObject*>& objects, const QString& path,
                       const ExportSelection& selection, const VtkExportSettings& settings);

} // namespace kpFormats
