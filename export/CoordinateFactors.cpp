// SPDX-License-Identifier: MIT
#include "export/CoordinateFactors.h"

#include "geo/CoordinateSystems.h"

namespace kpFormats
{

CoordinateFactors coordinateFactors(const ModelObject& object, OutputUnit unit, bool zIsElevation)
{
    const double factor = unitFactor(object.lengthUnit, unit);
    return {unitsOf(object.crs).degrees ? 1.0 : factor, zIsElevation ? factor : -factor};
}

} // namespace kpFormats
