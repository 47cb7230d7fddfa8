// SPDX-License-Identifier: MIT
#pragma once

#include "app/ui/BoundSheet.h"
#include "sheets/QExportSheetOpenTecLink.h"

namespace refhost
{

/// The OpenTecLink page of this program: the cross-sections among the chosen objects. The trace line is each section's
/// own, or that of one of them.
class OpenTecSheet : public BoundSheet<kpBaseExport::QExportSheetOpenTecLink>
{
public:
    OpenTecSheet(ExportFormat& format, const Model& model);

    void initialize(const QString& text) override;
    void deactivate() override;
    /// True while a section is checked.
    bool isComplete() const override;

protected:
    using BoundSheet::initialize;
    void updateSectionList() override;
};

} // namespace refhost
