// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/FilePlan.h"
#include "export/FormatInfo.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// A rough guess of a file's size in bytes, for a look at what fits on the disk.
KPFORMATS_EXPORT qint64 estimatedBytes(const FormatInfo& format, const PlannedFile& file,
                                       const ExportSelection& selection);

/// A size for people: "12.3 MB".
KPFORMATS_EXPORT QString sizeText(qint64 bytes);

} // namespace kpFormats
