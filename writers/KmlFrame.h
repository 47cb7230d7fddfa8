// SPDX-License-Identifier: MIT
#pragma once

namespace kpBaseExport::KmlFrame
{

// The fixed text around the features of a KML 2.1 document. The only substitution is the application's
// version, which stands between beforeVersion and afterVersion.

constexpr char beforeVersion[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                 "<kml xmlns=\"http://earth.google.com/kml/2.1\">\n"
                                 "<Document><atom:author><![CDATA[";

constexpr char afterVersion[] =
    "]]></atom:author>"
    "<Style id=\"transBluePoly\"><LineStyle><width>1.5</width></LineStyle>"
    "<PolyStyle><color>7dff0000</color></PolyStyle></Style>\n"
    "<Style id=\"sectionTrace\"><LineStyle><width>5</width><color>aa0000ff</color></LineStyle></Style>\n"
    "<Style id=\"well\"><IconStyle><color>ffffff00</color><scale>1.0</scale>"
    "<Icon><href>http://maps.google.com/mapfiles/kml/pal4/icon25.png</href></Icon></IconStyle></Style>\n";

constexpr char epilogue[] = "</Document>\n</kml>\n";

} // namespace kpBaseExport::KmlFrame
