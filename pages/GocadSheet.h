// SPDX-License-Identifier: MIT
#pragma once

#include "pages/BoundSheet.h"
#include "pages/kpFormatsUiExport.h"
#include "sheets/QExportSheetGocad.h"

namespace kpFormats
{

/// The GOCAD page of this program.
class KPFORMATSUI_EXPORT GocadSheet : public BoundSheet<kpBaseExport::QExportSheetGocad>
{
public:
    GocadSheet(FormatSetup& setup, const Model& model);

    void initialize(const QString& text) override;

protected:
    using BoundSheet::initialize;
};

} // namespace kpFormats
