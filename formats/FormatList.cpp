// SPDX-License-Identifier: MIT
#include "export/Format.h"
#include "formats/ascii/AsciiFormat.h"
#include "formats/cellcenters/CellCentersFormat.h"
#include "formats/deviation/DeviationFormat.h"
#include "formats/dxf/DxfFormat.h"
#include "formats/gocad/GocadFormat.h"
#include "formats/grdecl/GrdeclFormat.h"
#include "formats/irap/IrapBinaryFormat.h"
#include "formats/irap/IrapFormat.h"
#include "formats/irap/IrapPointsFormat.h"
#include "formats/kml/KmlFormat.h"
#include "formats/las/LasFormat.h"
#include "formats/obj/ObjFormat.h"
#include "formats/off/OffFormat.h"
#include "formats/ogr/FgbFormat.h"
#include "formats/ogr/GeoJsonFormat.h"
#include "formats/ogr/GmlFormat.h"
#include "formats/ogr/GpkgFormat.h"
#include "formats/ogr/PgDumpFormat.h"
#include "formats/ogr/ShpFormat.h"
#include "formats/ogr/SqliteFormat.h"
#include "formats/ogr/TabFormat.h"
#include "formats/opentec/OpenTecFormat.h"
#include "formats/ply/PlyFormat.h"
#include "formats/raster/ArcGridFormat.h"
#include "formats/raster/CogFormat.h"
#include "formats/raster/GeoTiffFormat.h"
#include "formats/raster/NetcdfFormat.h"
#include "formats/raster/Surfer6AsciiFormat.h"
#include "formats/raster/Surfer6Format.h"
#include "formats/raster/Surfer7Format.h"
#include "formats/stl/StlFormat.h"
#include "formats/vtk/VtiFormat.h"
#include "formats/vtk/VtpFormat.h"
#include "formats/vtk/VtuFormat.h"
#include "formats/zmap/ZMapFormat.h"

namespace kpFormats
{

Formats makeFormats()
{
    Formats formats;
    formats.push_back(std::make_unique<AsciiFormat>());
    formats.push_back(std::make_unique<KmlFormat>());
    formats.push_back(std::make_unique<DxfFormat>());
    formats.push_back(std::make_unique<OpenTecFormat>());
    formats.push_back(std::make_unique<ShpFormat>());
    formats.push_back(std::make_unique<TabFormat>());
    formats.push_back(std::make_unique<GpkgFormat>());
    formats.push_back(std::make_unique<GeoJsonFormat>());
    formats.push_back(std::make_unique<GocadFormat>());
    formats.push_back(std::make_unique<OffFormat>());
    formats.push_back(std::make_unique<ZMapFormat>());
    formats.push_back(std::make_unique<GrdeclFormat>());
    formats.push_back(std::make_unique<GeoTiffFormat>());
    formats.push_back(std::make_unique<CogFormat>());
    formats.push_back(std::make_unique<ArcGridFormat>());
    formats.push_back(std::make_unique<Surfer7Format>());
    formats.push_back(std::make_unique<Surfer6Format>());
    formats.push_back(std::make_unique<Surfer6AsciiFormat>());
    formats.push_back(std::make_unique<NetcdfFormat>());
    formats.push_back(std::make_unique<VtpFormat>());
    formats.push_back(std::make_unique<VtuFormat>());
    formats.push_back(std::make_unique<VtiFormat>());
    formats.push_back(std::make_unique<IrapFormat>());
    formats.push_back(std::make_unique<IrapBinaryFormat>());
    formats.push_back(std::make_unique<IrapPointsFormat>());
    formats.push_back(std::make_unique<ObjFormat>());
    formats.push_back(std::make_unique<PlyFormat>());
    formats.push_back(std::make_unique<StlFormat>());
    formats.push_back(std::make_unique<FgbFormat>());
    formats.push_back(std::make_unique<GmlFormat>());
    formats.push_back(std::make_unique<SqliteFormat>());
    formats.push_back(std::make_unique<PgDumpFormat>());
    formats.push_back(std::make_unique<LasFormat>());
    formats.push_back(std::make_unique<DeviationFormat>());
    formats.push_back(std::make_unique<CellCentersFormat>());
    return formats;
}

} // namespace kpFormats
