// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

#include <string>

class QColor;

namespace kpBaseExport
{

/// KML's text of a colour: alpha, blue, green, red as hexadecimal digits (KML 2.1 Reference, "color"); an invalid colour
/// is white.
KPBASEEXPORTCORE_EXPORT std::string kmlColour(const char* alpha, const QColor& colour);

} // namespace kpBaseExport
