// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedExport.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Writes the wanted files of an export. A file that fails is reported and left as it was, the others are written; a
/// cancel leaves every file as it was. The progress may be null. An export is run once.
KPFORMATS_EXPORT ExportReport runExport(PreparedExport& prepared, kpBase::AbstractProgress* progress);

} // namespace kpFormats
