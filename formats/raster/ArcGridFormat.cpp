// SPDX-License-Identifier: MIT
#include "formats/raster/ArcGridFormat.h"

namespace kpFormats
{

RasterTraits ArcGridFormat::traits() const
{
    RasterTraits traits;
    traits.key = QStringLiteral("arcgrid");
    traits.displayName = QStringLiteral("Arc ASCII grid");
    traits.driver = QStringLiteral("AAIGrid");
    traits.fileKind = QStringLiteral("Arc ASCII grid");
    traits.extensions = QStringList{QStringLiteral("asc")};
    traits.numbers = RasterTraits::NumberKind::Decimals;
    traits.squareCells = true;
    traits.system = true;
    traits.options = QStringList{QStringLiteral("FORCE_CELLSIZE=TRUE")};
    traits.readOptions = QStringList{QStringLiteral("DATATYPE=Float64")};
    traits.sidecars = QStringList{QStringLiteral("prj")};
    return traits;
}

} // namespace kpFormats
