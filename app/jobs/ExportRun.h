// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportFormat.h"

namespace refhost
{

/// Writes \a files of a plan. A file that fails is reported and left as it was, the others are written; a cancel
/// leaves every file as it was. The progress may be null.
/// \returns true when every file was written
bool runExport(ExportFormat& format, const ExportSelection& selection, const std::vector<PlannedFile>& files,
               kpBase::AbstractProgress* progress, ExportReport& report);

} // namespace refhost
