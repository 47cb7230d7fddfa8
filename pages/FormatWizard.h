// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "pages/kpFormatsUiExport.h"
#include "wizard/QExportWizard.h"

namespace kpBaseExport
{
class QExportSheetSaveFile;
}

namespace kpFormats
{

class FormatSaver;
class PlanSheet;

/// An export wizard over a model and the formats of a WizardFormats. After the file has been chosen it shows what will
/// be written, replaced and lost; what is then written replaces earlier files all together or not at all.
class KPFORMATSUI_EXPORT FormatWizard : public kpBaseExport::QExportWizard
{
    Q_OBJECT

public:
    /// The model outlives the wizard.
    explicit FormatWizard(const Model& model, QWidget* parent = nullptr);

    void activate_next_sheet() override;
    void activate_previous_sheet() override;
    void setFormatAndSelectedGeo(const std::string& key, const std::vector<int>& ids) override;
    /// The attributes of the chosen objects, each once. All of ours are visible, so the flags change nothing.
    void availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>& list, bool all, bool visible) override;

protected:
    void insertFileFormatDependentSheet() override;
    void populate_sheets() override;

    /// The saver of the chosen format; null when there is none or it is not one of ours.
    FormatSaver* formatSaver() const;
    kpBase::AbstractSheet* reportSheet() const { return m_reportSheet; }
    /// Writes again what the last save could not write completely.
    void retryFailed();
    /// A run begins, or has ended and is reported.
    virtual void runBegins() {}
    virtual void runReported() {}

private:
    void showPlan(const QString& path, bool accepted);
    void plan(bool keepEarlier);
    /// Files that exist, would be replaced, and were not named in the file dialog.
    QStringList replacedUnasked() const;
    void save();
    void run();

    const Model& m_objects;
    kpBaseExport::QExportSheetSaveFile* m_fileSheet = nullptr;
    kpBase::AbstractSheet* m_reportSheet = nullptr;
    PlanSheet* m_planSheet = nullptr;
    QString m_path;
    bool m_accepted = false;
    QStringList m_replaced;  ///< files that the plan has asked about
    std::string m_presetKey; ///< of a preset whose object page has not been shown; empty for none
    std::vector<int> m_presetIds;
};

} // namespace kpFormats
