// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"

namespace kpBase
{
class AbstractSheetHandler;
class Wizard;
} // namespace kpBase

namespace kpBaseExport
{

class QExportWizard;

/// The export wizard as the handler of its sheets; null for null. Defined beside the wizard, whose class is not
/// complete here.
KPBASEEXPORT_EXPORT kpBase::AbstractSheetHandler* sheetHandler(QExportWizard* wizard);

} // namespace kpBaseExport
