// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/FilePlan.h"
#include "export/Findings.h"
#include "formats/vtk/VtkDocument.h"
#include "formats/vtk/VtkExportSettings.h"

namespace kpFormats
{

/// The objects that have a position.
std::vector<const ModelObject*> vtkPlaced(const std::vector<const ModelObject*>& objects);

/// Points, lines and surfaces as a data set of type PolyData: vertices in the order of the objects, then a cell for each
/// lone point, each line and each face, with the number of the object at each cell.
/// \throws ExportError when no object has a position
VtkDocument vtkPolyData(const PlannedFile& file, const ExportSelection& selection, const VtkExportSettings& settings,
                        Findings& findings);

} // namespace kpFormats
