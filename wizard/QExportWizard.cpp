// SPDX-License-Identifier: MIT
#include "wizard/QExportWizard.h"

#include "core/saver/AbstractSaver.h"
#include "core/saver/AbstractSaverFactory.h"
#include "core/saver/AdditionalListSheet.h"
#include "core/saver/AttributeNamesSheet.h"
#include "core/saver/QExportAbstractOptionSheet.h"
#include "core/saver/QExportAbstractSheetFactory.h"
#include "core/saver/SheetHandler.h"
#include "wizard/QExportSheetObjectSelection.h"
#include "wizard/QExportSheetSaveFile.h"
#include "wizard/QExportSheetSaveInfo.h"

#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <stdexcept>

namespace kpBaseExport
{

namespace
{

constexpr char objectSelectionKey[] = "QExportSheetObjectSelectionImpl";
// Formats that are listed first, the newest in front.
constexpr const char* firstFormats[] = {"KLX 2.1", "KLX 2.0", "KLX 1.6"};

} // namespace

kpBase::AbstractSheetHandler* sheetHandler(QExportWizard* wizard)
{
    return wizard;
}

QExportWizard::QExportWizard(QWidget* parent, Qt::WindowFlags flags)
    : Wizard(parent, flags)
{
    setModal(true);
    QExportAbstractSheet* sheet = QExportAbstractSheetFactory::create_unmanaged(objectSelectionKey);
    m_objectSelection = dynamic_cast<QExportSheetObjectSelection*>(sheet);
    if (!m_objectSelection) {
        delete sheet;
        throw std::runtime_error("The sheet registered for the object selection is of another kind.");
    }
}

QExportWizard::~QExportWizard()
{
    // A page becomes the dialog's child when its sheet is added; before that nobody else owns it.
    if (!m_objectSelection->parentWidget())
        delete m_objectSelection;
}

void QExportWizard::populate_sheets()
{
    static_cast<QExportAbstractSheet*>(m_objectSelection)
        ->initialize(this, QStringLiteral("File Export: Select format and data"));
    m_fileSelection = new QExportSheetSaveFile(this, QStringLiteral("step 3"));
    connect(m_fileSelection, &QExportSheetSaveFile::saveClicked, this, &QExportWizard::slotSaveClicked);
    connect(m_fileSelection, &QExportSheetSaveFile::saveCancelled, this, &QExportWizard::slotSaveCancelled);
    m_report = new QExportSheetSaveInfo(this, QStringLiteral("info"));
    setWindowTitle(tr("Export Wizard"));
    add_sheet(m_objectSelection);
    add_sheet(m_fileSelection);
    add_sheet(m_report);
}

void QExportWizard::startup()
{
    if (!m_fileSelection)
        Wizard::startup();
    show_next_previous(true, tr("Next"));
    set_cancel_button_mode();
    activate_sheet(m_objectSelection, true);
    if (!m_formatPreset) {
        m_objectSelection->startup();
        return;
    }
    insertFileFormatDependentSheet();
    kpBase::AbstractSheet* sheet = m_objectSelection->next();
    activate_sheet(sheet, true);
    sheet->startup();
    if (sheet == m_fileSelection) {
        enterFileSelection();
        QTimer::singleShot(0, this, &QExportWizard::onFileSelectionRequired);
    }
}

void QExportWizard::enterFileSelection()
{
    if (m_currentSaver) {
        m_fileSelection->setFiltersAndDefaultSuffix(m_currentSaver->currentFileFormatName(),
                                                    m_currentSaver->currentDefaultFileFormatExt(),
                                                    m_currentSaver->currentAllFileFormatExt());
    }
    nextButton()->setText(tr("Save"));
}

std::string QExportWizard::chosenFormatKey() const
{
    return m_formatPreset ? m_presetKey : m_objectSelection->currentFileFormatKey().toStdString();
}

AbstractSaver* QExportWizard::saverOf(const std::string& key)
{
    for (const auto& saver : savers()) {
        if (saver->key() == key)
            return saver.get();
    }
    return nullptr;
}

void QExportWizard::insertFileFormatDependentSheet()
{
    const std::string key = chosenFormatKey();
    const auto* inPlace = dynamic_cast<QExportAbstractOptionSheet*>(m_objectSelection->next());
    if (inPlace && inPlace->key() == key)
        return;

    kpBase::AbstractSheet* sheet = m_objectSelection->next();
    while (sheet && sheet != m_fileSelection) {
        kpBase::AbstractSheet* following = sheet->next();
        remove_sheet(sheet);
        sheet = following;
    }

    const auto saver = std::find_if(savers().begin(), savers().end(),
                                    [&key](const auto& candidate) { return candidate->key() == key; });
    if (saver == savers().end())
        return;
    for (QExportAbstractOptionSheet* option : (*saver)->build_sheets(this)) {
        if (auto* additional = dynamic_cast<AdditionalListSheet*>(option))
            m_additionalListSheet = additional;
        insert_sheet(option, m_fileSelection);
    }
    m_currentSaver = *saver;
}

void QExportWizard::activate_next_sheet()
{
    if (current_sheet() == m_fileSelection) {
        const QString fileName = m_fileSelection->fileName();
        if (fileName.isEmpty()) {
            activate_sheet(m_fileSelection, true);
            nextButton()->setText(tr("Save"));
        } else {
            slotSaveClicked(fileName, false);
        }
        return;
    }
    if (current_sheet() == m_objectSelection) {
        insertFileFormatDependentSheet();
        QStringList required;
        if (m_additionalListSheet && m_currentSaver
            && m_currentSaver->getRequiredAttributes(selectedGeoIds(), required))
            m_additionalListSheet->setAdditionalList(required);
    }
    Wizard::activate_next_sheet();
    if (current_sheet() == m_fileSelection) {
        enterFileSelection();
        if (m_directoryMode)
            m_fileSelection->setDirectoryMode();
        else
            m_fileSelection->setFileMode();
        m_fileSelection->doFileSelection();
    }
}

void QExportWizard::activate_previous_sheet()
{
    if (current_sheet() == m_fileSelection)
        nextButton()->setText(tr("Next"));
    Wizard::activate_previous_sheet();
}

void QExportWizard::update_navigation()
{
    Wizard::update_navigation();
    if (m_formatPreset && current_sheet() && current_sheet()->previous() == m_objectSelection)
        backButton()->setEnabled(false);
}

std::vector<int> QExportWizard::selectedGeoIds()
{
    return m_formatPreset ? m_presetIds : m_objectSelection->selectedGeoIds();
}

std::vector<std::string> QExportWizard::selectedGeoNames()
{
    return m_objectSelection->selectedGeoNames();
}

std::vector<std::string> QExportWizard::selectedAttributeNames()
{
    AbstractSaver* saver = saverOf(chosenFormatKey());
    if (!saver)
        return {};
    for (QExportAbstractOptionSheet* sheet : saver->build_sheets(this)) {
        if (auto* attributes = dynamic_cast<AttributeNamesSheet*>(sheet))
            return attributes->selectedAttributeNames();
    }
    return {};
}

void QExportWizard::setGeoSelectionMode()
{
    m_formatPreset = false;
}

void QExportWizard::setFormatAndSelectedGeo(const std::string& key, const std::vector<int>& ids)
{
    m_formatPreset = true;
    m_presetKey = key;
    m_presetIds = ids;
}

void QExportWizard::setDirectoryMode(bool directory)
{
    m_directoryMode = directory;
}

bool QExportWizard::directoryMode() const
{
    return m_directoryMode;
}

const std::vector<boost::shared_ptr<AbstractSaver>>& QExportWizard::savers()
{
    if (!m_savers.empty())
        return m_savers;
    for (auto name = AbstractSaverFactory::products_begin(); name != AbstractSaverFactory::products_end(); ++name) {
        boost::shared_ptr<AbstractSaver> saver = AbstractSaverFactory::create(*name);
        if (!saver->formatDisplay().isEmpty())
            m_savers.push_back(saver);
    }
    auto front = m_savers.begin();
    for (const char* format : firstFormats) {
        const auto found = std::find_if(front, m_savers.end(), [format](const auto& saver) {
            return saver->currentFileFormatName() == QLatin1String(format);
        });
        if (found != m_savers.end()) {
            std::rotate(front, found, found + 1);
            ++front;
        }
    }
    return m_savers;
}

AbstractSaver* QExportWizard::currentSaver() const
{
    return m_currentSaver.get();
}

void QExportWizard::setErrorMessage(const QString& text)
{
    if (m_report)
        m_report->setErrorMessage(text);
}

void QExportWizard::setErrorMessage(const QString& file, const QString& detail)
{
    if (m_report)
        m_report->setErrorMessage(file, detail);
}

void QExportWizard::clearErrorList()
{
    if (m_report)
        m_report->clearErrorList();
}

void QExportWizard::setWarnings(const QString& text)
{
    if (m_report)
        m_report->setWarnings(text);
}

void QExportWizard::setSaveMode()
{
    show_next_previous(false, tr("Next"));
    closeButton()->hide();
}

void QExportWizard::setSaveModeComplete()
{
    show_next_previous(true, tr("Next"));
    closeButton()->show();
}

void QExportWizard::showInfoSheet()
{
    if (!m_report)
        return;
    if (m_currentSaver)
        m_report->setWarnings(m_currentSaver->warnings());
    m_report->showInfo();
    Wizard::activate_next_sheet();
}

void QExportWizard::showInfoSheetNoSuccess(bool cancelled)
{
    if (!m_report)
        return;
    m_report->showInfoNoSuccess(cancelled);
    Wizard::activate_next_sheet();
}

void QExportWizard::saveCancelled()
{
    Wizard::activate_previous_sheet();
}

void QExportWizard::slotSaveCancelled()
{
    activate_previous_sheet();
}

void QExportWizard::onFileSelectionRequired()
{
    if (m_fileSelection && m_objectSelection->next() == m_fileSelection)
        m_fileSelection->doFileSelection();
}

void QExportWizard::closeEvent(QCloseEvent* event)
{
    if (current_sheet())
        current_sheet()->deactivate();
    Wizard::closeEvent(event);
}

} // namespace kpBaseExport
