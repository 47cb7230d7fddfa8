// SPDX-License-Identifier: MIT
#include "app/jobs/ExportFormat.h"
#include "app/savers/AsciiFormat.h"
#include "app/savers/GeoJsonFormat.h"
#include "app/savers/GpkgFormat.h"
#include "app/savers/ShpFormat.h"
#include "app/savers/TabFormat.h"

namespace refhost
{

std::vector<std::unique_ptr<ExportFormat>> makeFormats()
{
    std::vector<std::unique_ptr<ExportFormat>> formats;
    formats.push_back(std::make_unique<AsciiFormat>());
    formats.push_back(std::make_unique<GeoJsonFormat>());
    formats.push_back(std::make_unique<GpkgFormat>());
    formats.push_back(std::make_unique<ShpFormat>());
    formats.push_back(std::make_unique<TabFormat>());
    return formats;
}

} // namespace refhost
