// SPDX-License-Identifier: MIT
#pragma once

#include "host/ui/AbstractSheet.h"
#include "wizard/ReportHtml.h"

#include <QStringList>
#include <QWidget>

#include <vector>

class QTextDocument;
class QTextEdit;

namespace kpBase
{
class Wizard;
}

namespace kpBaseExport
{

/// The wizard's last page: collects what became of each file and shows it as one report.
class KPBASEEXPORT_EXPORT QExportSheetSaveInfo : public QWidget, public kpBase::AbstractSheet
{
public:
    QExportSheetSaveInfo(kpBase::Wizard* wizard, const QString& text);

    bool isComplete() const override;

    /// Records one file; one with geometry and attributes is listed in both tables.
    void addFileName(const QString& name, const QExportAbstractSheet::InfoType& type,
                     const QExportAbstractSheet::FileInfo& state);
    void setDirectory(const QString& directory);
    /// Replaces the warnings (HTML).
    void setWarnings(const QString& warnings);
    /// Appends to the free error text (HTML).
    void setErrorMessage(const QString& text);
    /// Records a file that failed, and why (HTML; may be empty).
    void setErrorMessage(const QString& file, const QString& detail);
    /// Why the run could not be carried through, in plain text; shown with the error text until clearInfo().
    void setRunError(const QString& cause);
    /// Empties the list of failed files, not the error text.
    void clearErrorList();
    void clearFileInfos();
    /// Empties the page.
    void clearInfo();

    /// Shows the report of a success and empties the file lists.
    void showInfo();
    /// Shows the report of a failure, or of a cancelled run, and empties the file lists.
    void showInfoNoSuccess(bool cancelled);

private:
    void setHTMLInfo(QString html);

    std::vector<ReportEntry> m_geometric;
    std::vector<ReportEntry> m_attributes;
    std::vector<ReportEntry> m_others;
    QString m_directory;
    QTextEdit* m_view;
    QTextDocument* m_document;
    QString m_errorMessage;
    QString m_runError;
    QStringList m_errorFiles;
    QStringList m_errorDetails;
    QString m_warnings;
};

} // namespace kpBaseExport
