// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

#include <string>

namespace kpBaseExport
{

/// Appends \a value in fixed notation, byte for byte as QString::number(value, 'f', precision) gives it: the exact
/// binary value rounded half away from zero, no sign for -0, a sign for a negative value that rounds to zero,
/// "inf", "-inf", "nan".
KPBASEEXPORTCORE_EXPORT void appendFixed(std::string& text, double value, int precision);

/// Room that writeFixed() needs.
constexpr int longestFastNumber = 64;

/// The same text at \a out, which has room for longestFastNumber characters, without a 0 behind it; those behind the
/// text may change. Takes numbers of up to 16 digits, decimals included.
/// \returns the end of the text, or null when the number is none of these
KPBASEEXPORTCORE_EXPORT char* writeFixed(char* out, double value, int precision);

/// writeFixed(), or a faster function that does the same for this precision alone.
using FixedWriter = char* (*)(char* out, double value, int precision);
KPBASEEXPORTCORE_EXPORT FixedWriter fixedWriter(int precision);

} // namespace kpBaseExport
