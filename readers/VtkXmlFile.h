// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"
#include "readers/VtkDataSet.h"

namespace kpFormats
{

/// Reads a file of one of VTK's serial XML formats (vtp, vtu, vts, vti): text, base64 and raw bytes, as they are or
/// compressed with zlib. One data set for each piece.
/// The format: https://docs.vtk.org/en/latest/vtk_file_formats/vtkxml_file_format.html
/// \throws LoadError naming the line, or the array
KPFORMATS_EXPORT std::vector<VtkDataSet> readVtkXml(const QString& path);

/// Whether everything in it holds together; else what does not.
KPFORMATS_EXPORT QString faultOf(const VtkDataSet& dataSet);

} // namespace kpFormats
