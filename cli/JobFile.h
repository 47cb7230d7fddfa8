// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "cli/CommandArguments.h"

namespace refhost
{

/// The export that a job file describes: a JSON object with the keys of exportOptions(). Paths in it are relative to the
/// file.
/// \throws std::invalid_argument "FILE: what is wrong (what to do)"
ExportRequest readJobFile(const QString& path);

/// kpexport run. \returns the exit code
int jobCommand(const CommandArguments& arguments);

} // namespace refhost
