// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"
#include "readers/VtkDataSet.h"

namespace kpFormats
{

/// Reads a legacy file of VTK (vtk), text or binary, of versions 1 to 5.1, with a data set of type POLYDATA,
/// UNSTRUCTURED_GRID, STRUCTURED_GRID or STRUCTURED_POINTS.
/// The format: https://docs.vtk.org/en/latest/vtk_file_formats/vtk_legacy_file_format.html
/// \throws LoadError naming the byte
KPFORMATS_EXPORT VtkDataSet readVtkLegacy(const QString& path);

} // namespace kpFormats
