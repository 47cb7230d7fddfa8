// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/FilePlan.h"
#include "app/jobs/Verification.h"
#include "app/savers/ascii/AsciiExportSettings.h"
#include "app/savers/ascii/AsciiRecord.h"

namespace refhost
{

/// Reads a table of vertices line by line and compares rows, coordinates and real attributes with the objects, within
/// half of the last decimal written. A row whose texts hold the separator is read from its ends inwards.
/// \a table as it was given to the writer, columns included.
Verification verifyAscii(const PlannedFile& file, const QString& path, const AsciiTable& table,
                         const AsciiExportSettings& settings);

} // namespace refhost
