// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <set>
#include <string>
#include <vector>

namespace kpBase
{
class AbstractProgress;
class Wizard;
} // namespace kpBase

namespace kpBaseExport
{

class QExportAbstractOptionSheet;
class QExportWizard;

/// One output format as the wizard sees it: what it accepts, its option sheets, the names of its files, the save.
///
/// A saver follows one of two protocols. With newFilenameSystem() false the wizard asks for the file names, checks
/// them, and calls save() with those accepted. With true it calls new_save(), and the saver names its files itself.
class KPBASEEXPORT_EXPORT AbstractSaver
{
public:
    AbstractSaver(const AbstractSaver&);
    AbstractSaver& operator=(const AbstractSaver&);

    /// Does not delete the sheets: they are pages of the wizard.
    virtual ~AbstractSaver();
    /// The option sheets, built on the first call: the one registered under key(), or else, when the format supports
    /// attributes, the attribute sheet.
    virtual const QList<QExportAbstractOptionSheet*>& build_sheets(QExportWizard* wizard);
    /// Appends the attributes that the format must have for these objects. False when it asks for none.
    virtual bool getRequiredAttributes(const std::vector<int>& geoIds, QStringList& names);
    virtual bool newFilenameSystem();
    virtual bool forceMultipleFileSelection() const;
    /// What to save: the chosen path and the selection. Names are UTF-8.
    virtual void set_selection(const QString& path, const std::vector<int>& geoIds,
                               const std::vector<std::string>& geoNames,
                               const std::vector<std::string>& attributeNames) = 0;
    /// Writes the accepted files. False when something failed; messages go through get_wizard().
    virtual bool save(const std::vector<QString>& acceptedFiles, kpBase::AbstractProgress* progress) = 0;
    virtual bool new_save(const std::string& path, kpBase::AbstractProgress* progress);
    virtual bool shouldGoBack();
    /// Appends the names of the files to be written to the list of what they hold.
    virtual void generateFileNames(const QString& path, const std::vector<int>& geoIds,
                                   const std::vector<std::string>& geoNames,
                                   const std::vector<std::string>& attributeNames, QStringList& geoAttributeFiles,
                                   QStringList& geometryFiles, QStringList& attributeFiles, QStringList& otherFiles);
    virtual void generateFileNames(const QString& path, const std::vector<int>& geoIds,
                                   const std::vector<std::string>& geoNames,
                                   const std::vector<std::string>& attributeNames, QStringList& geoAttributeFiles,
                                   QStringList& geometryFiles, QStringList& attributeFiles);
    virtual kpBase::Wizard* get_wizard();
    virtual const kpBase::Wizard* get_wizard() const;
    virtual void set_wizard(kpBase::Wizard* wizard);

    const std::string& key() const;
    const std::set<std::string>& supported_types() const;
    bool supports_attributes() const;
    const QString& currentFileFormatName() const;
    const QString& currentDefaultFileFormatExt() const;
    const QString& currentAllFileFormatExt() const;
    const QString& formatDisplay() const;
    const std::vector<std::string>& savedFilenames() const;
    const QString& warnings() const;

protected:
    explicit AbstractSaver(const std::string& key);

    /// One file per object, named after it; clashing names are numbered. Appends to \a files.
    void generateFileNamesPerGeo(const QString& path, const std::vector<std::string>& geoNames,
                                 QStringList& files) const;
    /// \a name with the default extension when it has none.
    QString fileNameWithExtension(const QString& name) const;

    std::string m_key;
    std::set<std::string> m_supportedTypes;               ///< keys of the object types that the format takes
    bool m_supportsAttributes = true;                     ///< an attribute sheet is offered when there is no other
    QList<QExportAbstractOptionSheet*> m_sheets;          ///< not owned
    QString m_currentFileFormatName = QStringLiteral(""); ///< name in file dialogs
    QString m_currentDefaultFileFormatExt;                ///< extension without dot
    QString m_currentAllFileFormatExt;                    ///< patterns for file dialogs, "*.csv *.txt"
    QString m_formatDisplay;                              ///< name in the list of formats; empty hides the saver
    bool m_shouldGoBack = false;                          ///< after a failed new_save(), go back in the wizard
    std::vector<std::string> m_savedFilenames;            ///< files written by new_save()
    QString m_warnings;                                   ///< HTML shown in the report
    kpBase::Wizard* m_wizard = nullptr;                   ///< not owned
};

} // namespace kpBaseExport
