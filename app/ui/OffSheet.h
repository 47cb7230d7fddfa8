// SPDX-License-Identifier: MIT
#pragma once

#include "app/ui/BoundSheet.h"
#include "sheets/QExportSheetOff.h"

namespace refhost
{

/// The Geomview OFF page of this program. A file holds one object, so several objects ask for a directory.
class OffSheet : public BoundSheet<kpBaseExport::QExportSheetOff>
{
public:
    OffSheet(ExportFormat& format, const Model& model);

    void deactivate() override;
};

} // namespace refhost
