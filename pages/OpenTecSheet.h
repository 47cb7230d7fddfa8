// SPDX-License-Identifier: MIT
#pragma once

#include "pages/BoundSheet.h"
#include "pages/kpFormatsUiExport.h"
#include "sheets/QExportSheetOpenTecLink.h"

namespace kpFormats
{

/// The OpenTecLink page of this program: the cross-sections among the chosen objects. The trace line is each section's
/// own, or that of one of them.
class KPFORMATSUI_EXPORT OpenTecSheet : public BoundSheet<kpBaseExport::QExportSheetOpenTecLink>
{
public:
    OpenTecSheet(FormatSetup& setup, const Model& model);

    void initialize(const QString& text) override;
    void deactivate() override;
    /// True while a section is checked.
    bool isComplete() const override;

protected:
    using BoundSheet::initialize;
    void updateSectionList() override;
};

} // namespace kpFormats
