// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "cli/ExportRequest.h"

#include <QJsonObject>

namespace refhost
{

/// The call of the program that carries the request out, with its arguments quoted for a shell.
QString commandLineOf(const ExportRequest& request);

/// The same as the contents of a job file.
QJsonObject jobOf(const ExportRequest& request);

} // namespace refhost
