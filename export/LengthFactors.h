// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "model/OutputUnit.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// What the coordinates of an object are multiplied with on the way to a file.
struct KPFORMATS_EXPORT LengthFactors
{
    LengthFactors(const ModelObject& object, OutputUnit unit, bool zIsElevation);

    double flat;        ///< of x and y; 1 for degrees, which are no lengths
    double height;      ///< of z; negative where depths are written
    QString flatUnit;   ///< of x and y in the file, "degrees" or a length unit
    QString heightUnit; ///< of z
};

} // namespace kpFormats
