// SPDX-License-Identifier: MIT
#include "app/jobs/ExportFormat.h"

namespace refhost
{

Verification ExportFormat::verify(const PlannedFile&, const QString&, const ExportSelection&)
{
    return {};
}

} // namespace refhost
