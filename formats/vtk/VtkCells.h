// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/FilePlan.h"
#include "export/Findings.h"
#include "formats/vtk/VtkDocument.h"
#include "formats/vtk/VtkExportSettings.h"
#include "model/CellCorners.h"

namespace kpFormats
{

/// The volume of a file as a data set of type UnstructuredGrid: a hexahedron with eight points of its own for each cell,
/// its column, row and layer, and whether it is active. The pillars are in the field data.
/// \throws ExportError when it has no cell with a place
VtkDocument vtkCells(const PlannedFile& file, const ExportSelection& selection, const VtkExportSettings& settings,
                     Findings& findings);

} // namespace kpFormats
