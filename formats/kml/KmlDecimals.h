// SPDX-License-Identifier: MIT
#pragma once

namespace kpFormats
{

// A millionth of a degree is a tenth of a metre; nine decimals keep a tenth of a millimetre.
inline constexpr int kmlDegreeDecimals = 9;
inline constexpr int kmlHeightDecimals = 3; ///< of metres

} // namespace kpFormats
