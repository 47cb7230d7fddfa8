// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "model/OutputUnit.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// What the coordinates of an object are multiplied with on their way to a file.
struct CoordinateFactors
{
    double flat = 1.0; ///< x and y; degrees are no lengths and stay
    double up = 1.0;   ///< z; negative where the file has depths
};

KPFORMATS_EXPORT CoordinateFactors coordinateFactors(const ModelObject& object, OutputUnit unit, bool zIsElevation);

} // namespace kpFormats
