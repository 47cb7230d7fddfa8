// SPDX-License-Identifier: MIT
#include "app/jobs/ExportFormat.h"
#include "app/savers/AsciiFormat.h"

namespace refhost
{

std::vector<std::unique_ptr<ExportFormat>> makeFormats()
{
    std::vector<std::unique_ptr<ExportFormat>> formats;
    formats.push_back(std::make_unique<AsciiFormat>());
    return formats;
}

} // namespace refhost
