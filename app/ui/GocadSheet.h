// SPDX-License-Identifier: MIT
#pragma once

#include "app/ui/BoundSheet.h"
#include "sheets/QExportSheetGocad.h"

namespace refhost
{

/// The GOCAD page of this program.
class GocadSheet : public BoundSheet<kpBaseExport::QExportSheetGocad>
{
public:
    GocadSheet(ExportFormat& format, const Model& model);

    void initialize(const QString& text) override;

protected:
    using BoundSheet::initialize;
};

} // namespace refhost
