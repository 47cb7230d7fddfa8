// SPDX-License-Identifier: MIT
#include "export/LengthFactors.h"

#include "geo/CoordinateSystems.h"

namespace kpFormats
{

LengthFactors::LengthFactors(const ModelObject& object, OutputUnit unit, bool zIsElevation)
    : flat(1.0)
    , height(unitFactor(object.lengthUnit, unit))
    , flatUnit(QStringLiteral("degrees"))
    , heightUnit(writtenUnit(object.lengthUnit, unit))
{
    if (!unitsOf(object.crs).degrees) {
        flat = height;
        flatUnit = heightUnit;
    }
    if (!zIsElevation)
        height = -height;
}

} // namespace kpFormats
