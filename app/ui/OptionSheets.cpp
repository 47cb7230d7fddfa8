// SPDX-License-Identifier: MIT
#include "app/ui/OptionSheets.h"

#include "app/ui/SettingsSheet.h"

namespace refhost
{

kpBaseExport::QExportAbstractOptionSheet* makeOptionSheet(ExportFormat& format, HostContext&)
{
    return new SettingsSheet(format);
}

} // namespace refhost
