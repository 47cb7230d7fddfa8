// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportExport.h"

#include <string>

namespace kpBaseExport
{

/// Appends \a value in fixed notation, byte for byte as QString::number(value, 'f', precision) gives it: the exact
/// binary value rounded half away from zero, no sign for -0, a sign for a negative value that rounds to zero,
/// "inf", "-inf", "nan".
KPBASEEXPORT_EXPORT void appendFixed(std::string& text, double value, int precision);

} // namespace kpBaseExport
