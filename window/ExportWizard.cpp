// SPDX-License-Identifier: MIT
#include "window/ExportWizard.h"

#include "export/AttributeNames.h"
#include "export/ExportPlan.h"
#include "pages/HostSaver.h"
#include "pages/PlanSheet.h"
#include "window/HostContext.h"
#include "window/ReportActions.h"
#include "window/WizardRequest.h"
#include "wizard/QExportSheetSaveFile.h"

#include <QGridLayout>
#include <QScreen>

namespace refhost
{

namespace
{

/// The pages are made for it. A screen that is smaller still is that of a platform without one.
constexpr QSize smallestScreen(800, 600);

const char* typeNameOf(AttributeKind kind)
{
    switch (kind) {
    case AttributeKind::Real:
        return "real";
    case AttributeKind::Integer:
        return "integer";
    case AttributeKind::Boolean:
        return "boolean";
    case AttributeKind::Color:
        return "color";
    case AttributeKind::Text:
        return "text";
    }
    return "text";
}

} // namespace

ExportWizard::ExportWizard(HostContext& context, QWidget* parent)
    : QExportWizard(parent)
    , m_context(context)
{
    // In lines of text, so that a larger font gets a larger window.
    QSize size = QSize(53, 43) * fontMetrics().height();
    const QSize available = screen() ? screen()->availableSize() : QSize();
    if (available.expandedTo(smallestScreen) == available)
        size = size.boundedTo(available);
    resize(size);
}

void ExportWizard::insertFileFormatDependentSheet()
{
    // One file, unless the format's own page asks for several; another format's answer does not count.
    setDirectoryMode(false);
    QExportWizard::insertFileFormatDependentSheet();
}

HostSaver* ExportWizard::hostSaver() const
{
    return dynamic_cast<HostSaver*>(currentSaver());
}

void ExportWizard::populate_sheets()
{
    QExportWizard::populate_sheets();
    m_fileSheet = findChild<kpBaseExport::QExportSheetSaveFile*>();
    m_reportSheet = m_fileSheet->next();
    m_planSheet = new PlanSheet(this);
    insert_sheet(m_planSheet, m_reportSheet);
    // The plan comes between the choice of the file and the save run.
    disconnect(m_fileSheet, SIGNAL(saveClicked(QString, bool)), this, nullptr);
    connect(m_fileSheet, &kpBaseExport::QExportSheetSaveFile::saveClicked, this, &ExportWizard::showPlan);
    m_reportActions = new ReportActions(m_reportSheet->pageWidget());
    m_reportActions->setVisible(false);
    qobject_cast<QGridLayout*>(m_reportSheet->pageWidget()->layout())->addWidget(m_reportActions, 1, 0);
    connect(m_reportActions, &ReportActions::retryRequested, this, &ExportWizard::retryFailed);
}

void ExportWizard::activate_next_sheet()
{
    if (current_sheet() == m_planSheet)
        save();
    else if (current_sheet() == m_fileSheet && !m_fileSheet->fileName().isEmpty())
        showPlan(m_fileSheet->fileName(), false);
    else
        QExportWizard::activate_next_sheet();
}

void ExportWizard::activate_previous_sheet()
{
    const bool fromPlan = current_sheet() == m_planSheet;
    QExportWizard::activate_previous_sheet();
    // Back from the plan is another choice of the file.
    if (fromPlan)
        m_fileSheet->doFileSelection();
}

void ExportWizard::showPlan(const QString& path, bool accepted)
{
    HostSaver* saver = hostSaver();
    if (!saver)
        return;
    m_path = path;
    m_accepted = accepted;
    saver->set_selection(path, selectedGeoIds(), selectedGeoNames(), selectedAttributeNames());
    m_planSheet->showPlan(makePlan(saver->format(), saver->selection(), saver->plannedFiles()));
    activate_sheet(m_planSheet, true);
    show_next_previous(true, tr("Save"));
}

void ExportWizard::save()
{
    hostSaver()->setVerification(m_planSheet->wantsVerification());
    m_reportActions->setVisible(false);
    slotSaveClicked(m_path, m_accepted);
    m_reportActions->setVisible(true);
    m_reportActions->show(wizardRequest(m_context, *hostSaver()), hostSaver()->hasFailures());
}

void ExportWizard::retryFailed()
{
    hostSaver()->retryFailed();
    m_accepted = true;
    save();
}

void ExportWizard::availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>& list, bool, bool)
{
    std::vector<const ModelObject*> objects;
    for (const int id : selectedGeoIds()) {
        if (const ModelObject* object = m_context.model.find(id))
            objects.push_back(object);
    }
    for (const AttributeDescription& attribute : attributesOf(objects))
        list.append({attribute.name.toStdString(), typeNameOf(attribute.kind), attribute.unit.toStdString()});
}

} // namespace refhost
