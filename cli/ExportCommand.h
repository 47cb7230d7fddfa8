// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "cli/ExportRequest.h"

#include <QStringList>

namespace refhost
{

/// Carries the request out and prints what was written. \returns the exit code
int runRequest(const ExportRequest& request);

/// Prints why a request is not carried out, and says so in the report that it asks for. \returns \a code
int refuse(const ExportRequest& request, int code, const QString& error);

/// kpexport export. \returns the exit code
int exportCommand(const QStringList& arguments);

} // namespace refhost
