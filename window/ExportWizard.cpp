// SPDX-License-Identifier: MIT
#include "window/ExportWizard.h"

#include "pages/FormatSaver.h"
#include "window/HostContext.h"
#include "window/ReportActions.h"
#include "window/WizardRequest.h"

#include <QGridLayout>

namespace refhost
{

ExportWizard::ExportWizard(HostContext& context, QWidget* parent)
    : FormatWizard(context.model, parent)
    , m_context(context)
{
}

void ExportWizard::populate_sheets()
{
    FormatWizard::populate_sheets();
    QWidget* page = reportSheet()->pageWidget();
    m_reportActions = new ReportActions(page);
    m_reportActions->setVisible(false);
    qobject_cast<QGridLayout*>(page->layout())->addWidget(m_reportActions, 1, 0);
    connect(m_reportActions, &ReportActions::retryRequested, this, &ExportWizard::retryFailed);
}

void ExportWizard::runBegins()
{
    m_reportActions->setVisible(false);
}

void ExportWizard::runReported()
{
    m_reportActions->setVisible(true);
    m_reportActions->show(wizardRequest(m_context, *formatSaver()), formatSaver()->hasFailures());
}

} // namespace refhost
