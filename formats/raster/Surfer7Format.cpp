// SPDX-License-Identifier: MIT
#include "formats/raster/Surfer7Format.h"

#include "formats/raster/SurferNull.h"

namespace kpFormats
{

RasterTraits Surfer7Format::traits() const
{
    RasterTraits traits;
    traits.key = QStringLiteral("surfer7");
    traits.displayName = QStringLiteral("Surfer 7 grid");
    traits.driver = QStringLiteral("GS7BG");
    traits.fileKind = QStringLiteral("Surfer 7 grid");
    traits.extensions = QStringList{QStringLiteral("grd")};
    traits.numbers = RasterTraits::NumberKind::Double;
    traits.null = surferNull;
    traits.most = surferMost;
    return traits;
}

} // namespace kpFormats
