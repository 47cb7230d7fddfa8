// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/deviation/DeviationExportSettings.h"
#include "model/ModelObject.h"

#include <algorithm>

namespace kpFormats
{

/// How far the path that depths and angles give may leave the model's without a word: a hundredth of the file's unit, or a
/// ten-thousandth of the way.
inline double deviationPathAllowance(double way)
{
    return std::max(0.01, 1e-4 * way);
}

/// Reads a deviation table with the program's reader and compares name, unit, depths and places with the model, and the
/// path that depths and angles give; \a distance is how far the latter is known to leave the model's.
Verification verifyDeviation(const ModelObject& object, const QString& path, const DeviationExportSettings& settings,
                             OutputUnit unit, double distance);

} // namespace kpFormats
