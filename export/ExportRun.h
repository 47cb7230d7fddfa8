// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "export/ExportReport.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Writes \a files of a plan. A file that fails is reported and left as it was, the others are written; a cancel
/// leaves every file as it was. The progress may be null.
/// \returns true when every file was written
KPFORMATS_EXPORT bool runExport(ExportFormat& format, const ExportSelection& selection,
                                const std::vector<PlannedFile>& files, kpBase::AbstractProgress* progress,
                                ExportReport& report);

} // namespace kpFormats
