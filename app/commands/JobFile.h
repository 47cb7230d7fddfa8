// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace refhost
{

/// kpexport run: an export described by a JSON object with the keys "models", "format", "output", "objects", "types",
/// "attributes", "layout", "settings", "overwrite", "strict", "quiet", "report". Paths are relative to the job file.
/// \returns the exit code
int jobCommand(const QStringList& arguments);

} // namespace refhost
