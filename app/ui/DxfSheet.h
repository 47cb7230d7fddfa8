// SPDX-License-Identifier: MIT
#pragma once

#include "app/ui/BoundSheet.h"
#include "sheets/QExportSheetDxf.h"

namespace refhost
{

/// The DXF page of this program.
class DxfSheet : public BoundSheet<kpBaseExport::QExportSheetDxf>
{
public:
    DxfSheet(ExportFormat& format, const Model& model);

    void initialize(const QString& text) override;

protected:
    using BoundSheet::initialize;
};

} // namespace refhost
