// SPDX-License-Identifier: MIT
#include "app/jobs/ExportFormat.h"
#include "app/savers/ascii/AsciiFormat.h"
#include "app/savers/dxf/DxfFormat.h"
#include "app/savers/gocad/GocadFormat.h"
#include "app/savers/grdecl/GrdeclFormat.h"
#include "app/savers/kml/KmlFormat.h"
#include "app/savers/off/OffFormat.h"
#include "app/savers/ogr/GeoJsonFormat.h"
#include "app/savers/ogr/GpkgFormat.h"
#include "app/savers/ogr/ShpFormat.h"
#include "app/savers/ogr/TabFormat.h"
#include "app/savers/opentec/OpenTecFormat.h"
#include "app/savers/zmap/ZMapFormat.h"

namespace refhost
{

std::vector<std::unique_ptr<ExportFormat>> makeFormats()
{
    std::vector<std::unique_ptr<ExportFormat>> formats;
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
    return formats;
}

} // namespace refhost
