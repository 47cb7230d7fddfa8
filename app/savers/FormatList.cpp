// SPDX-License-Identifier: MIT
#include "app/jobs/ExportFormat.h"
#include "app/savers/AsciiFormat.h"
#include "app/savers/DxfFormat.h"
#include "app/savers/GeoJsonFormat.h"
#include "app/savers/GocadFormat.h"
#include "app/savers/GpkgFormat.h"
#include "app/savers/GrdeclFormat.h"
#include "app/savers/KmlFormat.h"
#include "app/savers/OffFormat.h"
#include "app/savers/OpenTecFormat.h"
#include "app/savers/ShpFormat.h"
#include "app/savers/TabFormat.h"
#include "app/savers/ZMapFormat.h"

namespace refhost
{

std::vector<std::unique_ptr<ExportFormat>> makeFormats()
{
    std::vector<std::unique_ptr<ExportFormat>> formats;
    formats.push_back(std::make_unique<AsciiFormat>());
    formats.push_back(std::make_unique<GocadFormat>());
    formats.push_back(std::make_unique<GrdeclFormat>());
    formats.push_back(std::make_unique<OffFormat>());
    formats.push_back(std::make_unique<ZMapFormat>());
    formats.push_back(std::make_unique<GeoJsonFormat>());
    formats.push_back(std::make_unique<GpkgFormat>());
    formats.push_back(std::make_unique<ShpFormat>());
    formats.push_back(std::make_unique<TabFormat>());
    formats.push_back(std::make_unique<DxfFormat>());
    formats.push_back(std::make_unique<KmlFormat>());
    formats.push_back(std::make_unique<OpenTecFormat>());
    return formats;
}

} // namespace refhost
