// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ascii/AsciiRecord.h"

namespace kpFormats
{

/// Gives the coordinates and each attribute of real numbers the decimals that they need.
void chooseDecimals(AsciiTable& table, const std::vector<const ModelObject*>& objects);

/// Notes what the decimals of the table make alike or 0.
void noteRounding(const AsciiTable& table, const ModelObject& object, Findings& findings);

} // namespace kpFormats
