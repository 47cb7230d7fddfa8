// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"
#include "host/ui/AbstractSheet.h"

#include <QWidget>

class QTextBrowser;

namespace kpBase
{
class Wizard;
}

namespace kpBaseExport
{

/// The page that asks for the output file, or for the output directory of a format that writes several files.
/// The platform's dialog opens as the page is entered; the directory used last is remembered per extension.
class KPBASEEXPORT_EXPORT QExportSheetSaveFile : public QWidget, public kpBase::AbstractSheet
{
    Q_OBJECT

public:
    QExportSheetSaveFile(kpBase::Wizard* wizard, const QString& text);

    void activate() override;
    bool isComplete() const override;

    /// Format name and patterns for the dialog's filter; the default suffix also keys the remembered directory.
    void setFiltersAndDefaultSuffix(const QString& formatName, const QString& defaultSuffix,
                                    const QString& allExtensions);
    void setFileMode();
    void setDirectoryMode();
    bool isFile() const;
    bool isDirectory() const;
    /// The chosen path: a file, or in directory mode the directory.
    QString fileName() const;
    QString dirName() const;

    /// Runs the dialog and signals the outcome.
    void doFileSelection();

    void loadSettings();
    void saveSettings();

    const QString& htmlHead();
    const QString& htmlTail();

Q_SIGNALS:
    void saveClicked(const QString& fileName, bool bUserAlreadyAccepted = true);
    void saveCancelled();

private:
    QString settingsGroup() const;

    QTextBrowser* m_browser;
    QString m_htmlHead;
    QString m_htmlTail;
    bool m_fileMode = true;
    QString m_directoryName;
    QString m_fileName;
    QString m_formatName;
    QString m_defaultSuffix;
    QString m_allExtensions;
};

} // namespace kpBaseExport
