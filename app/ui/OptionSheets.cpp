// SPDX-License-Identifier: MIT
#include "app/ui/OptionSheets.h"

#include "app/savers/AsciiFormat.h"
#include "app/ui/AsciiSheet.h"
#include "app/ui/SettingsSheet.h"

namespace refhost
{

kpBaseExport::QExportAbstractOptionSheet* makeOptionSheet(ExportFormat& format, HostContext& context)
{
    if (auto* ascii = dynamic_cast<AsciiFormat*>(&format))
        return new AsciiSheet(*ascii, context);
    return new SettingsSheet(format);
}

} // namespace refhost
