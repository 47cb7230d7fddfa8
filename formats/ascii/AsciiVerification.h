// SPDX-License-Identifier: MIT
#pragma once

#include "export/FilePlan.h"
#include "export/Verification.h"
#include "formats/ascii/AsciiExportSettings.h"
#include "formats/ascii/AsciiRecord.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Reads a table of vertices line by line and compares its header, every coordinate, number, text and missing value with
/// the objects, numbers within half of the last decimal written.
/// \a table as it was given to the writer, columns included.
KPFORMATS_EXPORT Verification verifyAscii(const PlannedFile& file, const QString& path, const AsciiTable& table,
                                          const AsciiExportSettings& settings);

} // namespace kpFormats
