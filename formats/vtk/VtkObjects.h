// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "formats/vtk/VtkDocument.h"
#include "formats/vtk/VtkExportSettings.h"
#include "model/ModelObject.h"

namespace kpFormats
{

// What a file says of its objects as a whole, in its field data: one text per object in each array.

/// Names of the arrays, in this order.
QStringList vtkObjectArrays();
/// The texts of one of them.
QStringList vtkObjectTexts(const QString& array, const std::vector<const ModelObject*>& objects,
                           const VtkExportSettings& settings);
/// "up" or "down".
QString vtkDirection(const VtkExportSettings& settings);

/// All of them; none, which is noted, where texts are not wanted.
std::vector<VtkArray> vtkObjects(const std::vector<const ModelObject*>& objects, const VtkExportSettings& settings,
                                 Findings& findings);

} // namespace kpFormats
