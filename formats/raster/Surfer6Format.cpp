// SPDX-License-Identifier: MIT
#include "formats/raster/Surfer6Format.h"

#include "formats/raster/SurferNull.h"

namespace kpFormats
{

RasterTraits Surfer6Format::traits() const
{
    RasterTraits traits;
    traits.key = QStringLiteral("surfer6");
    traits.displayName = QStringLiteral("Surfer 6 binary grid");
    traits.driver = QStringLiteral("GSBG");
    traits.fileKind = QStringLiteral("Surfer 6 binary grid");
    traits.extensions = QStringList{QStringLiteral("grd")};
    traits.numbers = RasterTraits::NumberKind::Single;
    traits.stepsByExtent = true;
    traits.mostNodes = 32767; // 16 bits and a sign
    traits.null = surferNull;
    traits.most = surferMost;
    return traits;
}

} // namespace kpFormats
