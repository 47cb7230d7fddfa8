// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "pages/FormatWizard.h"

#include <QVariant>

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

    void startup() override;

protected:
    void populate_sheets() override;
    void runBegins() override;
    void runReported() override;
    /// Escape: asks first when something has been chosen and no run has ended yet.
    void reject() override;

private:
    QVariantList choices() const;

    HostContext& m_context;
    ReportActions* m_reportActions = nullptr;
    kpBase::AbstractSheet* m_firstShown = nullptr;
    std::vector<int> m_idsAtStart;
    QVariantList m_choicesAtStart;
    bool m_ranOnce = false; ///< the report tells what has been written
};

} // namespace refhost
