// SPDX-License-Identifier: MIT
#pragma once

namespace kpFormats
{

// Decimals of the coordinates of a GeoJSON file where the user asks for none: a tenth of a millimetre.
inline constexpr int geoJsonDegreeDecimals = 9;
inline constexpr int geoJsonLengthDecimals = 4;

} // namespace kpFormats
