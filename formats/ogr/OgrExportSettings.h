// SPDX-License-Identifier: MIT
#pragma once

#include "export/FileGrouping.h"

#include <QString>

namespace kpFormats
{

/// How objects become the features of a vector file. Each format offers the members that mean something to it.
struct OgrExportSettings
{
    enum class Surfaces { Points, Polygons };

    QString crs;            ///< system of the output, "EPSG:n" or WKT; empty for that of the first object
    bool attributes = true; ///< attributes as fields
    bool symbology = false; ///< colours as a QGIS style beside the file, or as styles in a MapInfo file
    FileGrouping grouping = FileGrouping::Single; ///< one file, a file per object, a file per set
    bool objectName = true;                       ///< the object's name in a field
    bool color = true;                            ///< the object's colour in a field "colorval"
    bool unitsInNames = false;                    ///< the unit of an attribute behind its name, as in MD_ft
    bool dipInType = true; ///< "Horizontal " or "Vertical " before the text of a field type where dip is 0 or 90
    Surfaces surfaces = Surfaces::Points; ///< nodes as points, or triangles and grid cells as polygons
    int decimals = -1;        ///< of real numbers (Shapefile) or coordinates (GeoJSON); -1 for as many as needed
    bool zField = true;       ///< MapInfo: heights of points in a field z
    bool spatialIndex = true; ///< GeoPackage, Shapefile: with a spatial index
    bool rfc7946 = true;      ///< GeoJSON: longitude and latitude in WGS 84, as RFC 7946 asks for
};

} // namespace kpFormats
