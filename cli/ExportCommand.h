// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "cli/CommandArguments.h"

namespace refhost
{

/// Carries the request out and prints what was written. \returns the exit code
int runRequest(const ExportRequest& request);

/// Prints why a request is not carried out, and says so in the report that it asks for. \returns \a code
int refuse(const ExportRequest& request, int code, const QString& error);

/// The export that the arguments of a command describe.
ExportRequest exportRequest(const CommandArguments& arguments);
/// kpexport export. \returns the exit code
int exportCommand(const CommandArguments& arguments);
/// kpexport convert. \returns the exit code
int convertCommand(const CommandArguments& arguments);

} // namespace refhost
