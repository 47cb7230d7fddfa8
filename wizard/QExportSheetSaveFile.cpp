// SPDX-License-Identifier: MIT
#include "wizard/QExportSheetSaveFile.h"

#include "wizard/QExportWizard.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace kpBaseExport
{

namespace
{

const QString directoryKey = QStringLiteral("directory");

} // namespace

QExportSheetSaveFile::QExportSheetSaveFile(kpBase::Wizard* wizard, const QString&)
    : AbstractSheet(wizard)
    , m_browser(new QTextBrowser(this))
{
    m_pageWidget = this;
    setWindowTitle(tr("File Export: File Location Selection"));
    m_browser->setObjectName(QStringLiteral("instruction"));
    auto* layout = new QVBoxLayout;
    layout->addWidget(m_browser);
    setLayout(layout);
    setFileMode();
}

void QExportSheetSaveFile::activate() {}

bool QExportSheetSaveFile::isComplete() const
{
    return true;
}

void QExportSheetSaveFile::setFiltersAndDefaultSuffix(const QString& formatName, const QString& defaultSuffix,
                                                      const QString& allExtensions)
{
    m_formatName = formatName;
    m_defaultSuffix = defaultSuffix;
    m_allExtensions = allExtensions;
}

void QExportSheetSaveFile::setFileMode()
{
    m_browser->setHtml(htmlHead()
                       + tr("<b>Select the file to export the data into from the shown file selection dialog.</b>")
                       + htmlTail());
    m_fileMode = true;
}

void QExportSheetSaveFile::setDirectoryMode()
{
    m_browser->setHtml(htmlHead() + tr("<b>Select the location to save files to.</b><br/><br/>") + htmlTail());
    m_fileMode = false;
}

bool QExportSheetSaveFile::isFile() const
{
    return m_fileMode;
}

bool QExportSheetSaveFile::isDirectory() const
{
    return !m_fileMode;
}

QString QExportSheetSaveFile::fileName() const
{
    return m_fileName;
}

QString QExportSheetSaveFile::dirName() const
{
    return m_directoryName;
}

void QExportSheetSaveFile::doFileSelection()
{
    auto* wizard = dynamic_cast<QExportWizard*>(getSheetHandler());
    if (wizard)
        wizard->setSaveMode();
    loadSettings();
    const QString filter =
        tr("All %1 Files (%2)").arg(m_formatName, m_allExtensions) + QStringLiteral(";;") + tr("All Files (*.*)");
    const QString path =
        m_fileMode ? QFileDialog::getSaveFileName(this, tr("File Export: File Selection"), m_directoryName, filter)
                   : QFileDialog::getExistingDirectory(this, tr("File Export: Directory Selection"), m_directoryName,
                                                       QFileDialog::ShowDirsOnly);
    if (wizard)
        wizard->setSaveModeComplete();
    if (path.isEmpty()) {
        Q_EMIT saveCancelled();
        return;
    }
    m_directoryName = m_fileMode ? QFileInfo(path).absolutePath() : path;
    m_fileName = path;
    saveSettings();
    Q_EMIT saveClicked(m_fileName, true);
}

QString QExportSheetSaveFile::settingsGroup() const
{
    return QStringLiteral("QExportSheetSaveFile") + m_defaultSuffix;
}

void QExportSheetSaveFile::loadSettings()
{
    QSettings settings;
    settings.beginGroup(settingsGroup());
    if (settings.contains(directoryKey))
        m_directoryName = settings.value(directoryKey).toString();
    settings.endGroup();
    if (m_directoryName.isEmpty())
        m_directoryName = QDir::homePath();
}

void QExportSheetSaveFile::saveSettings()
{
    if (m_directoryName.isEmpty())
        return;
    QSettings settings;
    settings.beginGroup(settingsGroup());
    settings.setValue(directoryKey, m_directoryName);
    settings.endGroup();
}

const QString& QExportSheetSaveFile::htmlHead()
{
    if (m_htmlHead.isEmpty()) {
        m_htmlHead = QStringLiteral(
            "<html><head><meta name=\"qrichtext\" content=\"1\" />"
            "<style type=\"text/css\">\np, li { white-space: pre-wrap; }\n</style></head>"
            "<body style=\" font-family:'MS Shell Dlg 2'; font-size:8.25pt; font-weight:400; font-style:normal;\">\n");
    }
    return m_htmlHead;
}

const QString& QExportSheetSaveFile::htmlTail()
{
    if (m_htmlTail.isEmpty())
        m_htmlTail = QStringLiteral("</body></html>");
    return m_htmlTail;
}

} // namespace kpBaseExport
