// SPDX-License-Identifier: MIT
#pragma once

#include "app/ui/BoundSheet.h"
#include "sheets/QExportSheetEclipse.h"

namespace refhost
{

/// The Eclipse page of this program, which writes the GRDECL variant of one grid.
class GrdeclSheet : public BoundSheet<kpBaseExport::QExportSheetEclipse>
{
public:
    GrdeclSheet(ExportFormat& format, const Model& model);

    void initialize(const QString& text) override;
    void activate() override;

protected:
    using BoundSheet::initialize;
};

} // namespace refhost
