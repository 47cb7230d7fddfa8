// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "wizard/QExportWizard.h"

namespace kpBaseExport
{
class QExportSheetSaveFile;
}

namespace kpFormats
{
class HostSaver;
class PlanSheet;
} // namespace kpFormats

namespace refhost
{

class HostContext;
class ReportActions;

/// The export wizard over the program's model: after the file has been chosen it shows what will be written, and below
/// the report what can be done next.
class ExportWizard : public kpBaseExport::QExportWizard
{
    Q_OBJECT

public:
    ExportWizard(HostContext& context, QWidget* parent);

    void activate_next_sheet() override;
    void activate_previous_sheet() override;
    /// The attributes of the chosen objects, each once. All of ours are visible, so the flags change nothing.
    void availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>& list, bool all, bool visible) override;

protected:
    void insertFileFormatDependentSheet() override;
    void populate_sheets() override;

private:
    HostSaver* hostSaver() const;
    void showPlan(const QString& path, bool accepted);
    void save();
    void retryFailed();

    HostContext& m_context;
    kpBaseExport::QExportSheetSaveFile* m_fileSheet = nullptr;
    kpBase::AbstractSheet* m_reportSheet = nullptr;
    PlanSheet* m_planSheet = nullptr;
    ReportActions* m_reportActions = nullptr;
    QString m_path;
    bool m_accepted = false;
};

} // namespace refhost
