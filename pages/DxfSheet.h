// SPDX-License-Identifier: MIT
#pragma once

#include "pages/BoundSheet.h"
#include "pages/kpFormatsUiExport.h"
#include "sheets/QExportSheetDxf.h"

namespace kpFormats
{

/// The DXF page of this program.
class KPFORMATSUI_EXPORT DxfSheet : public BoundSheet<kpBaseExport::QExportSheetDxf>
{
public:
    DxfSheet(FormatSetup& setup, const Model& model);

    void initialize(const QString& text) override;

protected:
    using BoundSheet::initialize;
};

} // namespace kpFormats
