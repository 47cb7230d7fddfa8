// SPDX-License-Identifier: MIT
#include "app/jobs/ExportFormat.h"

namespace refhost
{

void ExportFormat::loadLayout(const QString&)
{
    throw SettingsError(QStringLiteral("%1: this format takes no layout (leave it out)").arg(info().key));
}

bool ExportFormat::saveLayout(const QString&)
{
    return false;
}

Verification ExportFormat::verify(const PlannedFile&, const QString&, const ExportSelection&)
{
    return {};
}

} // namespace refhost
