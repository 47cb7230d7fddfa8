// SPDX-License-Identifier: MIT
#pragma once

#include "app/ui/BoundSheet.h"
#include "sheets/QExportSheetOpenTecLink.h"

namespace refhost
{

/// The OpenTecLink page of this program: the cross-sections among the chosen objects.
class OpenTecSheet : public BoundSheet<kpBaseExport::QExportSheetOpenTecLink>
{
public:
    OpenTecSheet(ExportFormat& format, const Model& model);

    void deactivate() override;

protected:
    void updateSectionList() override;
};

} // namespace refhost
