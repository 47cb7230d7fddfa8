// SPDX-License-Identifier: MIT
#include "formats/raster/GeoTiffFormat.h"

namespace kpFormats
{

RasterTraits GeoTiffFormat::traits() const
{
    RasterTraits traits;
    traits.key = QStringLiteral("geotiff");
    traits.displayName = QStringLiteral("GeoTIFF");
    traits.driver = QStringLiteral("GTiff");
    traits.fileKind = QStringLiteral("GeoTIFF");
    traits.extensions = QStringList{QStringLiteral("tif"), QStringLiteral("tiff")};
    traits.bands = true;
    traits.rotation = true;
    traits.system = true;
    traits.compression = true;
    // Beyond 4 GB the offsets need more room.
    traits.options = QStringList{QStringLiteral("BIGTIFF=IF_SAFER")};
    traits.sidecars = QStringList{QStringLiteral("tfw"), QStringLiteral("tif.ovr")};
    return traits;
}

} // namespace kpFormats
