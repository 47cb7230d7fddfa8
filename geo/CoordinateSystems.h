// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

class OGRSpatialReference;

namespace kpFormats
{

/// "EPSG:n", WKT or another text that PROJ knows as WKT; empty when it is not known.
KPFORMATS_EXPORT QString wktOf(const QString& text);
/// WKT of a reference; empty for null and for one that says nothing.
KPFORMATS_EXPORT QString wktOf(const OGRSpatialReference* reference);
/// The length unit in which a system counts, "m", "ft", "ftUS" or "km"; empty for degrees, another unit or no system.
struct SystemUnits
{
    QString horizontal;
    QString vertical; ///< empty when the system has no heights
    bool degrees = false;
};
KPFORMATS_EXPORT SystemUnits unitsOf(const QString& wkt);
/// A short name such as "GDA94 / MGA zone 50 (EPSG:28350)"; empty for empty WKT.
KPFORMATS_EXPORT QString crsName(const QString& wkt);
/// The EPSG number of a system given as WKT; 0 when it has none.
KPFORMATS_EXPORT int epsgCodeOf(const QString& wkt);
/// The unit of positions in a system given as WKT, "degrees", "m" or its name there; empty when there is none.
KPFORMATS_EXPORT QString crsUnit(const QString& wkt);

} // namespace kpFormats
