// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "pages/FormatWizard.h"

namespace refhost
{

class HostContext;
class ReportActions;

/// The export wizard over the program's model: below the report it shows what can be done next.
class ExportWizard : public FormatWizard
{
    Q_OBJECT

public:
    ExportWizard(HostContext& context, QWidget* parent);

protected:
    void populate_sheets() override;
    void runBegins() override;
    void runReported() override;

private:
    HostContext& m_context;
    ReportActions* m_reportActions = nullptr;
};

} // namespace refhost
