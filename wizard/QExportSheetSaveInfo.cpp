// SPDX-License-Identifier: MIT
#include "wizard/QExportSheetSaveInfo.h"

#include "host/ui/Wizard.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QTextDocument>
#include <QTextEdit>

namespace kpBaseExport
{

using namespace ReportHtml;

QExportSheetSaveInfo::QExportSheetSaveInfo(kpBase::Wizard* wizard, const QString&)
    : AbstractSheet(wizard)
    , m_view(new QTextEdit)
    , m_document(new QTextDocument(this))
{
    m_pageWidget = this;
    setWindowTitle(QCoreApplication::translate("QExportSheetSaveInfo", "File Export: Options"));
    m_view->setObjectName(QStringLiteral("reportView"));
    m_view->setReadOnly(true);
    m_view->setDocument(m_document);
    QFont font(QStringLiteral("Helvetica [Cronyx]"));
    font.setPointSize(12);
    m_view->setFont(font);
    auto* layout = new QGridLayout(this);
    layout->setMargin(0);
    layout->addWidget(m_view, 0, 0);
}

bool QExportSheetSaveInfo::isComplete() const
{
    return true;
}

void QExportSheetSaveInfo::addFileName(const QString& name, const QExportAbstractSheet::InfoType& type,
                                       const QExportAbstractSheet::FileInfo& state)
{
    using Sheet = QExportAbstractSheet;
    if (type == Sheet::GEO_DATA || type == Sheet::GEO_AND_ATTRIBUTE_DATA)
        m_geometric.push_back({name, state});
    if (type == Sheet::ATTRIBUTE_DATA || type == Sheet::GEO_AND_ATTRIBUTE_DATA)
        m_attributes.push_back({name, state});
    if (type == Sheet::OTHER_FILE)
        m_others.push_back({name, state});
}

void QExportSheetSaveInfo::setDirectory(const QString& directory)
{
    m_directory = directory;
}

void QExportSheetSaveInfo::setWarnings(const QString& warnings)
{
    m_warnings = warnings;
}

void QExportSheetSaveInfo::setErrorMessage(const QString& text)
{
    m_errorMessage += text;
}

void QExportSheetSaveInfo::setErrorMessage(const QString& file, const QString& detail)
{
    m_errorFiles.append(file);
    m_errorDetails.append(detail);
}

void QExportSheetSaveInfo::setRunError(const QString& cause)
{
    m_runError = cause;
}

void QExportSheetSaveInfo::clearErrorList()
{
    m_errorFiles.clear();
    m_errorDetails.clear();
}

void QExportSheetSaveInfo::clearFileInfos()
{
    m_geometric.clear();
    m_attributes.clear();
    m_others.clear();
}

void QExportSheetSaveInfo::clearInfo()
{
    m_runError.clear();
    m_document->setHtml(QString());
}

void QExportSheetSaveInfo::showInfo()
{
    QString html = blackTag() + QStringLiteral("Data has been exported successfully! </font><br>") + blackTag()
                   + QStringLiteral("The data are stored as follows:</font><br><br>") + blackTag()
                   + QStringLiteral("<u><b>Directory</b>:</u></font>  ") + blueTag() + m_directory.toHtmlEscaped()
                   + QStringLiteral("</font><br><br>");
    if (!m_warnings.isEmpty())
        html += QStringLiteral("<p>") + m_warnings + QStringLiteral("</p><br />");
    setHTMLInfo(html);
}

void QExportSheetSaveInfo::showInfoNoSuccess(bool cancelled)
{
    const QString largeRed = QStringLiteral("<font color=\"red\"  size=5>");
    QString html;
    if (cancelled) {
        html = largeRed + QStringLiteral("Export process has been cancelled by the user! </font><br><br>");
    } else {
        html = largeRed + QStringLiteral("Data has not been exported successfully! </font><br>");
        if (!m_errorMessage.isEmpty())
            html += blackTag() + m_errorMessage + QStringLiteral("</font>");
        if (!m_runError.isEmpty())
            html += blackTag() + m_runError.toHtmlEscaped() + QStringLiteral("</font><br>");
        for (int index = 0; index < m_errorFiles.size(); ++index) {
            html += redTag() + QStringLiteral("Failed </font>") + blackTag() + QStringLiteral("to export </font>")
                    + blueTag() + m_errorFiles[index].toHtmlEscaped() + QStringLiteral("</font><br>");
            const QString detail = m_errorDetails.value(index);
            if (!detail.isEmpty())
                html += blackTag() + detail + QStringLiteral("</font><br>");
        }
        html += QStringLiteral("<br>");
    }
    if (!m_warnings.isEmpty())
        html += QStringLiteral("<p>") + m_warnings + QStringLiteral("</p>");
    clearFileInfos();
    setHTMLInfo(html);
}

void QExportSheetSaveInfo::setHTMLInfo(QString html)
{
    html += table(QStringLiteral("Geometric Data"), m_geometric);
    html += table(QStringLiteral("Attribute Data"), m_attributes);
    html += table(QStringLiteral("Other Files"), m_others);
    m_document->setHtml(html);
    m_view->setDocument(m_document);
    clearFileInfos();
}

} // namespace kpBaseExport
