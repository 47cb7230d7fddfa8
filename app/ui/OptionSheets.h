// SPDX-License-Identifier: MIT
#pragma once

namespace kpBaseExport
{
class QExportAbstractOptionSheet;
}

namespace refhost
{

class ExportFormat;
class HostContext;

/// A new option page of a format, for the wizard: the format's own page, or one made from its settings. The caller
/// decides its lifetime; format and context outlive it.
kpBaseExport::QExportAbstractOptionSheet* makeOptionSheet(ExportFormat& format, HostContext& context);

} // namespace refhost
