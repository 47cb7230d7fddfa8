// SPDX-License-Identifier: MIT
#pragma once

#include "pages/BoundSheet.h"
#include "pages/kpFormatsUiExport.h"
#include "sheets/QExportSheetEclipse.h"

namespace kpFormats
{

/// The Eclipse page of this program, which writes the GRDECL variant of one grid.
class KPFORMATSUI_EXPORT GrdeclSheet : public BoundSheet<kpBaseExport::QExportSheetEclipse>
{
public:
    GrdeclSheet(FormatSetup& setup, const Model& model);

    void initialize(const QString& text) override;
    void activate() override;

protected:
    using BoundSheet::initialize;
};

} // namespace kpFormats
