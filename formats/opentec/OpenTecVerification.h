// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/opentec/OpenTecExportSettings.h"
#include "model/ModelObject.h"

namespace kpFormats
{

/// Reads an OpenTecLink file with the program's reader and compares its trace and every line with the section: names,
/// colours, kinds and positions. \a trace is the object whose trace was to be written.
Verification verifyOpenTec(const ModelObject& section, const ModelObject& trace, const QString& path,
                           const OpenTecExportSettings& settings);

} // namespace kpFormats
