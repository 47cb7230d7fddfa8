// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "cli/ExportRequest.h"

#include <QJsonObject>

namespace kpFormats
{
class PreparedExport;
}

namespace refhost
{

/// The outcome of a run or a plan, with what it is of: the program, its inputs, the objects, every setting, and how it
/// ended.
QJsonObject runReport(QJsonObject outcome, const PreparedExport& prepared, const ExportRequest& request, int exitCode);

/// The same for a run that came to no file.
QJsonObject refusedReport(const ExportRequest& request, int exitCode, const QString& error);

} // namespace refhost
