// SPDX-License-Identifier: MIT
// The save run of the wizard: from the chosen path to the report.
#include "core/saver/AbstractSaver.h"
#include "host/ui/WizardProgress.h"
#include "wizard/PlainText.h"
#include "wizard/QExportSheetSaveInfo.h"
#include "wizard/QExportWizard.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include <exception>

namespace kpBaseExport
{

namespace
{

/// Tries to create a file; it stays, empty, when that works.
bool canCreate(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly);
}

} // namespace

void QExportWizard::slotSaveClicked(const QString& path, bool userAlreadyAccepted)
{
    if (!m_report)
        return;
    const QString nativePath = QDir::toNativeSeparators(path);
    show_next_previous(false, tr("Next"));
    m_report->clearInfo();
    activate_sheet(m_report, true);
    m_report->setDirectory(QFileInfo(nativePath).absolutePath());
    // Whatever a saver throws, and at whichever step, the run ends in the report.
    try {
        if (!m_currentSaver)
            endRun(tr("No saver is registered for the chosen format."));
        else if (m_currentSaver->newFilenameSystem())
            saveSelfNamed(nativePath);
        else
            saveNameFirst(nativePath, userAlreadyAccepted);
    } catch (const std::exception& error) {
        endRun(QString::fromUtf8(error.what()));
    } catch (...) {
        endRun(tr("The saver failed without saying why."));
    }
}

void QExportWizard::endRun(const QString& cause)
{
    closeButton()->setText(tr("Close"));
    m_report->setRunError(cause);
    m_report->showInfoNoSuccess(false);
    Wizard::activate_next_sheet();
    get_progress()->progressFinished();
}

void QExportWizard::saveSelfNamed(const QString& path)
{
    m_currentSaver->set_selection(path, selectedGeoIds(), selectedGeoNames(), selectedAttributeNames());
    closeButton()->setText(tr("Close"));
    kpBase::WizardProgress* progress = get_progress();
    m_currentSaver->set_wizard(this);
    progress->begin();
    const bool saved = m_currentSaver->new_save(path.toStdString(), progress);
    if (saved && !progress->isCancelled()) {
        for (const std::string& name : m_currentSaver->savedFilenames()) {
            m_report->addFileName(QString::fromStdString(name), QExportAbstractSheet::GEO_DATA,
                                  QExportAbstractSheet::ACCEPTED);
        }
        showInfoSheet();
    } else if (m_currentSaver->shouldGoBack()) {
        // From the report to the file selection, and on to the sheet before it.
        activate_previous_sheet();
        activate_previous_sheet();
        set_cancel_button_mode();
        show_next_previous(true, tr("Next"));
    } else {
        m_report->showInfoNoSuccess(progress->isCancelled());
        Wizard::activate_next_sheet();
    }
    progress->progressFinished();
}

void QExportWizard::saveNameFirst(const QString& path, bool userAlreadyAccepted)
{
    const std::vector<int> ids = selectedGeoIds();
    const std::vector<std::string> names = selectedGeoNames();
    const std::vector<std::string> attributes = selectedAttributeNames();
    m_currentSaver->set_selection(path, ids, names, attributes);
    QStringList geoAttributeFiles;
    QStringList geometryFiles;
    QStringList attributeFiles;
    QStringList otherFiles;
    m_currentSaver->generateFileNames(path, ids, names, attributes, geoAttributeFiles, geometryFiles, attributeFiles,
                                      otherFiles);
    std::vector<QString> accepted;
    const bool single = geoAttributeFiles.size() < 2 && geometryFiles.size() < 2;
    bool askAgain = !m_replacingAgreed;
    closeButton()->setText(tr("Close"));
    checkFileNamesUserAccepted(geoAttributeFiles, path, QExportAbstractSheet::GEO_AND_ATTRIBUTE_DATA, askAgain,
                               accepted, single, userAlreadyAccepted);
    checkFileNamesUserAccepted(geometryFiles, path, QExportAbstractSheet::GEO_DATA, askAgain, accepted, single,
                               userAlreadyAccepted);
    addUncheckedFiles(attributeFiles, QExportAbstractSheet::ATTRIBUTE_DATA);
    addUncheckedFiles(otherFiles, QExportAbstractSheet::OTHER_FILE);

    kpBase::WizardProgress* progress = get_progress();
    m_currentSaver->set_wizard(this);
    progress->begin();
    const bool saved = m_currentSaver->save(accepted, progress);
    if (saved && !progress->isCancelled()) {
        m_report->setWarnings(m_currentSaver->warnings());
        m_report->showInfo();
    } else {
        m_report->showInfoNoSuccess(progress->isCancelled());
    }
    Wizard::activate_next_sheet();
    progress->progressFinished();
}

void QExportWizard::addUncheckedFiles(const QStringList& names, QExportAbstractSheet::InfoType type)
{
    for (const QString& name : names) {
        const QFileInfo info(name);
        QExportAbstractSheet::FileInfo state = QExportAbstractSheet::ACCEPTED;
        if (info.exists()) {
            state = info.isWritable() ? QExportAbstractSheet::ACCEPTED_OVERWRITTEN
                                      : QExportAbstractSheet::NO_WRITE_PERMISSION;
        } else if (!canCreate(name)) {
            state = QExportAbstractSheet::NO_CREATE_PERMISSION;
        }
        m_report->addFileName(info.fileName(), type, state);
    }
}

void QExportWizard::checkFileNamesUserAccepted(const QStringList& names, const QString&,
                                               const QExportAbstractSheet::InfoType& type, bool& askAgain,
                                               std::vector<QString>& accepted, bool single, bool userAlreadyAccepted)
{
    bool first = true;
    for (const QString& name : names) {
        const bool ask = !(first && userAlreadyAccepted);
        first = false;
        const QExportAbstractSheet::FileInfo state = fileCanBeSaved(name, askAgain, single, ask);
        if (state == QExportAbstractSheet::ACCEPTED || state == QExportAbstractSheet::ACCEPTED_OVERWRITTEN)
            accepted.push_back(name);
        m_report->addFileName(QFileInfo(name).fileName(), type, state);
    }
}

QExportAbstractSheet::FileInfo QExportWizard::fileCanBeSaved(const QString& fileName, bool& askAgain, bool single,
                                                             bool ask)
{
    const QFileInfo info(fileName);
    if (!info.exists())
        return canCreate(fileName) ? QExportAbstractSheet::ACCEPTED : QExportAbstractSheet::NO_CREATE_PERMISSION;
    QMessageBox::StandardButton answer = QMessageBox::YesToAll;
    if (ask && (single || askAgain)) {
        QMessageBox::StandardButtons buttons = QMessageBox::Yes | QMessageBox::No;
        if (!single)
            buttons |= QMessageBox::YesToAll;
        answer = QMessageBox::warning(
            this, windowTitle(), plainText(tr("%1 already exists.\nDo you want to replace it?").arg(info.fileName())),
            buttons);
    }
    if (answer == QMessageBox::No)
        return QExportAbstractSheet::USER_DID_NOT_ACCEPT_OVERWRITING;
    askAgain = answer != QMessageBox::YesToAll;
    return info.isWritable() ? QExportAbstractSheet::ACCEPTED_OVERWRITTEN : QExportAbstractSheet::NO_WRITE_PERMISSION;
}

} // namespace kpBaseExport
