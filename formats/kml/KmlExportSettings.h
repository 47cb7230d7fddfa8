// SPDX-License-Identifier: MIT
#pragma once

#include "export/FileGrouping.h"

#include <QString>

namespace kpFormats
{

/// How a KML export looks. Positions are always written in WGS 84.
struct KmlExportSettings
{
    enum class AltitudeMode { Clamp, Relative, Absolute };

    QString crs; ///< coordinate system of objects that have none: "EPSG:n" or WKT
    AltitudeMode altitudeMode = AltitudeMode::Absolute; ///< on the ground, metres above the ground, above sea level
    bool compress = false;                              ///< one .kmz with its pictures instead of .kml and pictures
    bool attributes = true;                             ///< attributes as tables in the descriptions
    bool boundingArea = false;                          ///< a half-transparent rectangle around everything
    FileGrouping grouping = FileGrouping::Single;       ///< one file, a file per object, a file per set
};

} // namespace kpFormats
