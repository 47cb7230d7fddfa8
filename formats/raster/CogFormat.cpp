// SPDX-License-Identifier: MIT
#include "formats/raster/CogFormat.h"

namespace kpFormats
{

RasterTraits CogFormat::traits() const
{
    RasterTraits traits;
    traits.key = QStringLiteral("cog");
    traits.displayName = QStringLiteral("Cloud optimized GeoTIFF");
    traits.driver = QStringLiteral("COG");
    traits.fileKind = QStringLiteral("cloud optimized GeoTIFF");
    traits.extensions = QStringList{QStringLiteral("tif"), QStringLiteral("tiff")};
    traits.bands = true;
    traits.rotation = true;
    traits.system = true;
    traits.compression = true;
    traits.overviews = true;
    // Other ways of making overviews reach beyond the values that are there.
    traits.options = QStringList{QStringLiteral("BIGTIFF=IF_SAFER"), QStringLiteral("OVERVIEW_RESAMPLING=AVERAGE")};
    traits.sidecars = QStringList{QStringLiteral("tfw"), QStringLiteral("tif.ovr")};
    return traits;
}

} // namespace kpFormats
