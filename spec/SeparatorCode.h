// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"
#include "spec/QExportSpecification.h"

namespace kpBaseExport
{

/// The ASCII writer's code of the editor's separator: the two count them in different orders.
KPBASEEXPORT_EXPORT int writerSeparator(QExportSpecification::Separator separator);

} // namespace kpBaseExport
