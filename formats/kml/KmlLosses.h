// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Findings.h"
#include "formats/kml/KmlExportSettings.h"

namespace kpFormats
{

/// Why nothing of an object can be drawn, as far as its geometry tells; empty when something can.
QString undrawable(const ModelObject& object);
/// Notes chosen attributes of vertices, for an object that has a place for attributes of the whole only.
void noteVertexAttributes(const ModelObject& object, const KmlExportSettings& settings,
                          const ExportSelection& selection, Findings& findings);
/// Notes the lines on a section where they have no place.
void noteLinesOnGround(const ModelObject& section, const KmlExportSettings& settings, Findings& findings);

} // namespace kpFormats
