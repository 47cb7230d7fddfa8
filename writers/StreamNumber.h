// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

#include <string>

namespace kpBaseExport
{

/// Appends \a value in fixed notation as a stream in the classic locale writes it: the exact binary value
/// rounded to \a precision decimals, -0 with its sign, "inf", "-inf" and "nan" as such.
/// A negative precision stands for 6, as in a stream.
KPBASEEXPORTCORE_EXPORT void appendStreamFixed(std::string& text, double value, int precision);

} // namespace kpBaseExport
