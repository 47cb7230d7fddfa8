// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "cli/ExportRequest.h"

namespace refhost
{

/// The export that a job file describes: a JSON object with the keys "models", "format", "output", "objects", "types",
/// "attributes", "noAttributes", "layout", "settings", "overwrite", "strict", "verify", "dryRun", "quiet", "report". Paths in it are
/// relative to the file.
/// \throws std::invalid_argument "FILE: what is wrong (what to do)"
ExportRequest readJobFile(const QString& path);

/// kpexport run. \returns the exit code
int jobCommand(const QStringList& arguments);

} // namespace refhost
