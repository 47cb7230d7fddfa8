// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Findings.h"
#include "formats/dxf/DxfExportSettings.h"

namespace kpFormats
{

/// Notes that objects are of different systems or units: they would lie in the wrong places relative to each other.
void noteMixture(const std::vector<const ModelObject*>& objects, const DxfExportSettings& settings, Findings& findings);
/// Notes the attributes of an object: a drawing has none.
void noteAttributes(const ModelObject& object, const ExportSelection& selection, Findings& findings);
/// Why nothing of an object can be drawn, as far as its geometry tells; empty when something can.
QString undrawable(const ModelObject& object, const DxfExportSettings& settings);
/// Notes the colours of an object, and of the lines on a section, that are not among those of a drawing.
void noteColours(const ModelObject& object, Findings& findings);
/// Whether it is a surface and the settings leave nothing of surfaces.
bool isSwitchedOff(const ModelObject& object, const DxfExportSettings& settings);

} // namespace kpFormats
