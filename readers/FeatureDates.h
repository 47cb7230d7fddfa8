// SPDX-License-Identifier: MIT
#pragma once

#include "model/AttributeColumn.h"
#include "model/kpFormatsExport.h"

#include <ogr_core.h>

namespace kpFormats
{

/// The value of a field of dates or times in ISO 8601, as the model keeps it.
KPFORMATS_EXPORT QString isoOf(const OGRField& value, TextMeaning meaning);

} // namespace kpFormats
