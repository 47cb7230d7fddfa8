// SPDX-License-Identifier: MIT
#pragma once

#include "wizard/QExportWizard.h"

namespace refhost
{

class HostContext;

/// The export wizard over the program's model.
class ExportWizard : public kpBaseExport::QExportWizard
{
    Q_OBJECT

public:
    ExportWizard(HostContext& context, QWidget* parent);

    /// The attributes of the chosen objects, each once. All of ours are visible, so the flags change nothing.
    void availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>& list, bool all, bool visible) override;

protected:
    void insertFileFormatDependentSheet() override;

private:
    HostContext& m_context;
};

} // namespace refhost
