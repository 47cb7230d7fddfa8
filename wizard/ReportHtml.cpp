// SPDX-License-Identifier: MIT
#include "wizard/ReportHtml.h"

namespace kpBaseExport::ReportHtml
{

const QString& blueTag()
{
    static const QString tag = QStringLiteral("<font color=\"blue\"  size=4>");
    return tag;
}

const QString& blackTag()
{
    static const QString tag = QStringLiteral("<font color=\"black\" size=4>");
    return tag;
}

const QString& redTag()
{
    static const QString tag = QStringLiteral("<font color=\"red\"   size=4>");
    return tag;
}

QString stateText(QExportAbstractSheet::FileInfo state)
{
    switch (state) {
    case QExportAbstractSheet::ACCEPTED:
        return QStringLiteral("accepted");
    case QExportAbstractSheet::ACCEPTED_OVERWRITTEN:
        return QStringLiteral("accepted,overwritten");
    case QExportAbstractSheet::USER_DID_NOT_ACCEPT_OVERWRITING:
        return QStringLiteral("user did not accept overwriting");
    case QExportAbstractSheet::NO_WRITE_PERMISSION:
        return QStringLiteral("no write permission");
    case QExportAbstractSheet::NO_CREATE_PERMISSION:
        return QStringLiteral("no create permission");
    }
    return {};
}

QString stateTag(QExportAbstractSheet::FileInfo state)
{
    switch (state) {
    case QExportAbstractSheet::ACCEPTED:
    case QExportAbstractSheet::ACCEPTED_OVERWRITTEN:
        return blackTag();
    case QExportAbstractSheet::USER_DID_NOT_ACCEPT_OVERWRITING:
        return blueTag();
    case QExportAbstractSheet::NO_WRITE_PERMISSION:
    case QExportAbstractSheet::NO_CREATE_PERMISSION:
        return redTag();
    }
    return {};
}

QString table(const QString& title, const std::vector<ReportEntry>& entries)
{
    if (entries.empty())
        return {};
    QString html = blackTag() + QStringLiteral("<u><b>") + title + QStringLiteral("</b>:</u></font><br>")
                   + QStringLiteral("<table align=\"center\" border=1 width=500 cellpadding=5>");
    for (const ReportEntry& entry : entries) {
        html += QStringLiteral("<tr><td>") + blueTag() + entry.name.toHtmlEscaped() + QStringLiteral("</font><td>")
                + stateTag(entry.state) + stateText(entry.state) + QStringLiteral("</font></tr>");
    }
    return html + QStringLiteral("</table><br><br>");
}

} // namespace kpBaseExport::ReportHtml
