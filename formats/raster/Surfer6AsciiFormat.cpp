// SPDX-License-Identifier: MIT
#include "formats/raster/Surfer6AsciiFormat.h"

#include "formats/raster/SurferNull.h"

namespace kpFormats
{

RasterTraits Surfer6AsciiFormat::traits() const
{
    RasterTraits traits;
    traits.key = QStringLiteral("surfer6ascii");
    traits.displayName = QStringLiteral("Surfer 6 text grid");
    traits.driver = QStringLiteral("GSAG");
    traits.fileKind = QStringLiteral("Surfer 6 text grid");
    traits.extensions = QStringList{QStringLiteral("grd")};
    traits.numbers = RasterTraits::NumberKind::Digits;
    traits.stepsByExtent = true;
    traits.null = surferNull;
    traits.most = surferMost;
    return traits;
}

} // namespace kpFormats
