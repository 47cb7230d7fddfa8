// SPDX-License-Identifier: MIT
#include "pages/FormatWizard.h"

#include "export/AttributeNames.h"
#include "export/ExportPlan.h"
#include "host/ui/WizardProgress.h"
#include "pages/FormatSaver.h"
#include "pages/ObjectSelectionSheet.h"
#include "pages/PlanSheet.h"
#include "pages/SettingsMemory.h"
#include "wizard/QExportSheetSaveFile.h"

#include <QFileInfo>
#include <QPushButton>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace kpFormats
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

FormatWizard::FormatWizard(const Model& model, QWidget* parent)
    : QExportWizard(parent)
    , m_objects(model)
{
    // In lines of text, so that a larger font gets a larger window.
    QSize size = QSize(53, 43) * fontMetrics().height();
    const QSize available = screen() ? screen()->availableSize() : QSize();
    if (available.expandedTo(smallestScreen) == available)
        size = size.boundedTo(available);
    resize(size);
}

void FormatWizard::insertFileFormatDependentSheet()
{
    // One file, unless the format's own page asks for several; another format's answer does not count.
    setDirectoryMode(false);
    QExportWizard::insertFileFormatDependentSheet();
}

FormatSaver* FormatWizard::formatSaver() const
{
    return dynamic_cast<FormatSaver*>(currentSaver());
}

void FormatWizard::populate_sheets()
{
    QExportWizard::populate_sheets();
    m_fileSheet = findChild<kpBaseExport::QExportSheetSaveFile*>();
    m_reportSheet = m_fileSheet->next();
    m_planSheet = new PlanSheet(this);
    insert_sheet(m_planSheet, m_reportSheet);
    // The plan comes between the choice of the file and the save run.
    disconnect(m_fileSheet, SIGNAL(saveClicked(QString, bool)), this, nullptr);
    connect(m_fileSheet, &kpBaseExport::QExportSheetSaveFile::saveClicked, this, &FormatWizard::showPlan);
    connect(m_planSheet, &PlanSheet::completeChanged, this, &FormatWizard::update_navigation);
    connect(m_planSheet, &PlanSheet::keepBothRequested, this, [this] { plan(true); });
}

void FormatWizard::activate_next_sheet()
{
    if (current_sheet() == m_planSheet)
        save();
    else if (current_sheet() == m_fileSheet && !m_fileSheet->fileName().isEmpty())
        showPlan(m_fileSheet->fileName(), false);
    else
        QExportWizard::activate_next_sheet();
}

void FormatWizard::activate_previous_sheet()
{
    if (current_sheet() == m_reportSheet) {
        // With everything kept; the plan is made anew, since files may have been written.
        set_cancel_button_mode();
        plan(false);
        return;
    }
    const bool fromPlan = current_sheet() == m_planSheet;
    QExportWizard::activate_previous_sheet();
    // Back from the plan is another choice of the file.
    if (fromPlan)
        m_fileSheet->doFileSelection();
    auto* objects = dynamic_cast<ObjectSelectionSheet*>(current_sheet());
    if (!objects || m_presetKey.empty())
        return;
    // The preset has passed this page over, and nothing has filled it yet.
    setGeoSelectionMode();
    objects->takeOver(std::exchange(m_presetKey, {}), m_presetIds);
}

void FormatWizard::setFormatAndSelectedGeo(const std::string& key, const std::vector<int>& ids)
{
    m_presetKey = key;
    m_presetIds = ids;
    QExportWizard::setFormatAndSelectedGeo(key, ids);
}

void FormatWizard::showPlan(const QString& path, bool accepted)
{
    FormatSaver* saver = formatSaver();
    if (!saver)
        return slotSaveClicked(path, accepted); // a saver of the host's own plans nothing
    m_path = path;
    m_accepted = accepted;
    plan(false);
}

void FormatWizard::plan(bool keepEarlier)
{
    FormatSaver& saver = *formatSaver();
    saver.setKeepEarlier(keepEarlier);
    saver.set_selection(m_path, selectedGeoIds(), selectedGeoNames(), selectedAttributeNames());
    m_replaced = replacedUnasked();
    m_planSheet->showPlan(planOf(*saver.prepared()), m_replaced.size());
    activate_sheet(m_planSheet, true);
    show_next_previous(true, tr("Save"));
}

QStringList FormatWizard::replacedUnasked() const
{
    QStringList files = formatSaver()->prepared()->earlierFiles();
    if (m_accepted) {
        const QFileInfo agreed(m_path);
        files.erase(std::remove_if(files.begin(), files.end(),
                                   [&agreed](const QString& file) { return QFileInfo(file) == agreed; }),
                    files.end());
    }
    return files;
}

void FormatWizard::save()
{
    // What has appeared since the plan was shown is asked about too.
    if (replacedUnasked() != m_replaced)
        plan(false);
    else
        run();
}

void FormatWizard::run()
{
    formatSaver()->setVerification(m_planSheet->wantsVerification());
    storeLastFormat(QString::fromStdString(formatSaver()->key()));
    setReplacingAgreed(true);
    runBegins();
    slotSaveClicked(m_path, true);
    if (formatSaver()->hasFailures() || get_progress()->isCancelled()) {
        show_next_previous(true, tr("Save"));
        nextButton()->hide();
    }
    runReported();
}

void FormatWizard::retryFailed()
{
    formatSaver()->retryFailed();
    run();
}

void FormatWizard::availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>& list, bool, bool)
{
    std::vector<const ModelObject*> objects;
    for (const int id : selectedGeoIds()) {
        if (const ModelObject* object = m_objects.find(id))
            objects.push_back(object);
    }
    for (const AttributeDescription& attribute : attributesOf(objects))
        list.append({attribute.name.toStdString(), typeNameOf(attribute.kind), attribute.unit.toStdString()});
}

} // namespace kpFormats
