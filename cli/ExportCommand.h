// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "cli/ExportRequest.h"

#include <QStringList>

namespace refhost
{

/// Carries the request out and prints what was written. \returns the exit code
int runRequest(const ExportRequest& request);

/// kpexport export. \returns the exit code
int exportCommand(const QStringList& arguments);

} // namespace refhost
