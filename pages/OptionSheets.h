// SPDX-License-Identifier: MIT
#pragma once

#include "pages/kpFormatsUiExport.h"

namespace kpBaseExport
{
class QExportAbstractOptionSheet;
}

namespace kpFormats
{

struct FormatSetup;
class Model;

/// A new option page of a format, for the wizard: the format's own page, or one made from its settings. The caller
/// decides its lifetime; format and model outlive it.
KPFORMATSUI_EXPORT kpBaseExport::QExportAbstractOptionSheet* makeOptionSheet(FormatSetup& setup, const Model& model);

} // namespace kpFormats
