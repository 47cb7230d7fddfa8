// SPDX-License-Identifier: MIT
#include "app/jobs/ExportFormat.h"
#include "app/savers/AsciiFormat.h"
#include "app/savers/DxfFormat.h"
#include "app/savers/KmlFormat.h"
#include "app/savers/OpenTecFormat.h"

namespace refhost
{

std::vector<std::unique_ptr<ExportFormat>> makeFormats()
{
    std::vector<std::unique_ptr<ExportFormat>> formats;
    formats.push_back(std::make_unique<AsciiFormat>());
    formats.push_back(std::make_unique<DxfFormat>());
    formats.push_back(std::make_unique<KmlFormat>());
    formats.push_back(std::make_unique<OpenTecFormat>());
    return formats;
}

} // namespace refhost
