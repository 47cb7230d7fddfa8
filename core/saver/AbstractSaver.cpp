// SPDX-License-Identifier: MIT
#include "core/saver/AbstractSaver.h"

#include "core/saver/FileNaming.h"
#include "core/saver/QExportAbstractOptionSheet.h"

#include <QFileInfo>

namespace kpBaseExport
{

namespace
{

constexpr char attributeSheetKey[] = "QExportAttributeSheetImpl";

} // namespace

AbstractSaver::AbstractSaver(const std::string& key)
    : m_key(key)
{
}

AbstractSaver::AbstractSaver(const AbstractSaver&) = default;
AbstractSaver& AbstractSaver::operator=(const AbstractSaver&) = default;
AbstractSaver::~AbstractSaver() = default;

const QList<QExportAbstractOptionSheet*>& AbstractSaver::build_sheets(QExportWizard* wizard)
{
    if (!m_sheets.isEmpty())
        return m_sheets;
    QExportAbstractOptionSheet* sheet = QExportAbstractOptionSheet::create_unmanaged(m_key, wizard, QString());
    if (!sheet && m_supportsAttributes)
        sheet = QExportAbstractOptionSheet::create_unmanaged(attributeSheetKey, wizard, QString());
    if (sheet)
        m_sheets.append(sheet);
    return m_sheets;
}

bool AbstractSaver::getRequiredAttributes(const std::vector<int>&, QStringList&)
{
    return false;
}

bool AbstractSaver::newFilenameSystem()
{
    return false;
}

bool AbstractSaver::forceMultipleFileSelection() const
{
    return false;
}

bool AbstractSaver::new_save(const std::string&, kpBase::AbstractProgress*)
{
    return false;
}

bool AbstractSaver::shouldGoBack()
{
    return m_shouldGoBack;
}

void AbstractSaver::generateFileNames(const QString& path, const std::vector<int>& geoIds,
                                      const std::vector<std::string>& geoNames,
                                      const std::vector<std::string>& attributeNames, QStringList& geoAttributeFiles,
                                      QStringList& geometryFiles, QStringList& attributeFiles, QStringList&)
{
    generateFileNames(path, geoIds, geoNames, attributeNames, geoAttributeFiles, geometryFiles, attributeFiles);
}

void AbstractSaver::generateFileNames(const QString& path, const std::vector<int>&, const std::vector<std::string>&,
                                      const std::vector<std::string>&, QStringList& geoAttributeFiles, QStringList&,
                                      QStringList&)
{
    geoAttributeFiles.append(m_currentDefaultFileFormatExt.isEmpty() ? path : fileNameWithExtension(path));
}

kpBase::Wizard* AbstractSaver::get_wizard()
{
    return m_wizard;
}

const kpBase::Wizard* AbstractSaver::get_wizard() const
{
    return m_wizard;
}

void AbstractSaver::set_wizard(kpBase::Wizard* wizard)
{
    m_wizard = wizard;
}

const std::string& AbstractSaver::key() const
{
    return m_key;
}

const std::set<std::string>& AbstractSaver::supported_types() const
{
    return m_supportedTypes;
}

bool AbstractSaver::supports_attributes() const
{
    return m_supportsAttributes;
}

const QString& AbstractSaver::currentFileFormatName() const
{
    return m_currentFileFormatName;
}

const QString& AbstractSaver::currentDefaultFileFormatExt() const
{
    return m_currentDefaultFileFormatExt;
}

const QString& AbstractSaver::currentAllFileFormatExt() const
{
    return m_currentAllFileFormatExt;
}

const QString& AbstractSaver::formatDisplay() const
{
    return m_formatDisplay;
}

const std::vector<std::string>& AbstractSaver::savedFilenames() const
{
    return m_savedFilenames;
}

const QString& AbstractSaver::warnings() const
{
    return m_warnings;
}

void AbstractSaver::generateFileNamesPerGeo(const QString& path, const std::vector<std::string>& geoNames,
                                            QStringList& files) const
{
    files.append(fileNamesPerObject(path, geoNames));
}

QString AbstractSaver::fileNameWithExtension(const QString& name) const
{
    if (!QFileInfo(name).suffix().isEmpty())
        return name;
    return name + QLatin1Char('.') + m_currentDefaultFileFormatExt;
}

} // namespace kpBaseExport
