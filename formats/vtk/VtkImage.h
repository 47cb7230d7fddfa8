// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/FilePlan.h"
#include "export/Findings.h"
#include "formats/vtk/VtkDocument.h"
#include "formats/vtk/VtkExportSettings.h"

namespace kpFormats
{

/// The name of the array of heights: "elevation" or "depth".
QString vtkHeightName(const VtkExportSettings& settings);

/// The grid surface of a file as a data set of type ImageData at z 0: heights and attributes are arrays of its nodes.
/// \throws ExportError when it is no grid
VtkDocument vtkImage(const PlannedFile& file, const ExportSelection& selection, const VtkExportSettings& settings,
                     Findings& findings);

} // namespace kpFormats
