// SPDX-License-Identifier: MIT
#include "export/ExportReport.h"

#include "export/FindingText.h"

#include <algorithm>

namespace kpFormats
{

QJsonArray FileOutcome::failedJson() const
{
    QJsonArray failed;
    for (const FailedObject& object : failedObjects)
        failed.append(QJsonObject{{QStringLiteral("name"), object.name}, {QStringLiteral("reason"), object.reason}});
    return failed;
}

void ExportReport::note(const QString& kind, const QString& object, qint64 count, const QString& example)
{
    if (count <= 0)
        return;
    const auto found = m_places.constFind({kind, object});
    if (found != m_places.constEnd()) {
        m_findings[*found].count += count;
        return;
    }
    m_places.insert({kind, object}, m_findings.size());
    m_findings.push_back({kind, object, count, example});
}

void ExportReport::add(const ExportReport& other)
{
    for (const Finding& finding : other.findings())
        note(finding.kind, finding.object, finding.count, finding.example);
}

bool ExportReport::anyFailed() const
{
    return std::any_of(m_files.begin(), m_files.end(), [](const FileOutcome& file) { return !file.complete(); });
}

QJsonObject ExportReport::toJson(const QString& formatKey) const
{
    QJsonArray files;
    for (const FileOutcome& file : m_files) {
        QJsonObject entry{
            {QStringLiteral("path"), file.path},
            {QStringLiteral("objects"), QJsonArray::fromStringList(file.objects)},
            {QStringLiteral("outcome"), file.written() ? QStringLiteral("written") : QStringLiteral("failed")},
            {QStringLiteral("rows"), file.rows},
            {QStringLiteral("bytes"), file.bytes}};
        if (!file.written())
            entry.insert(QStringLiteral("error"), file.error);
        const QJsonArray failed = file.failedJson();
        if (!failed.isEmpty())
            entry.insert(QStringLiteral("failedObjects"), failed);
        if (!file.verification.reader.isEmpty())
            entry.insert(QStringLiteral("verification"),
                         QJsonObject{{QStringLiteral("reader"), file.verification.reader},
                                     {QStringLiteral("count"), file.verification.count},
                                     {QStringLiteral("worstError"), file.verification.worstError},
                                     {QStringLiteral("fault"), file.verification.fault}});
        files.append(entry);
    }
    return {{QStringLiteral("format"), formatKey},
            {QStringLiteral("cancelled"), cancelled},
            {QStringLiteral("files"), files},
            {QStringLiteral("findings"), findingsJson()}};
}

QJsonArray ExportReport::findingsJson() const
{
    QJsonArray findings;
    for (const Finding& finding : m_findings) {
        findings.append(QJsonObject{{QStringLiteral("kind"), finding.kind},
                                    {QStringLiteral("object"), finding.object},
                                    {QStringLiteral("count"), finding.count},
                                    {QStringLiteral("example"), finding.example}});
    }
    return findings;
}

QStringList ExportReport::findingLines() const
{
    // A user of a thousand objects wants to know what happened, not a thousand times that it did.
    struct Summary
    {
        const Finding* first;
        qint64 count = 0;
        int objects = 0;
    };
    std::vector<Summary> summaries;
    for (const Finding& finding : m_findings) {
        auto summary = std::find_if(summaries.begin(), summaries.end(),
                                    [&finding](const Summary& entry) { return entry.first->kind == finding.kind; });
        if (summary == summaries.end())
            summary = summaries.insert(summaries.end(), {&finding});
        summary->count += finding.count;
        ++summary->objects;
    }
    QStringList lines;
    for (const Summary& summary : summaries) {
        const QString& object = summary.first->object;
        QString line = findingText(summary.first->kind, summary.count);
        if (summary.objects == 1) {
            line.prepend(object.isEmpty() ? QString() : object + QStringLiteral(": "));
        } else {
            // Objects that share a name are one here, so a number of objects is not told of as many others.
            const bool inObjects = summary.count > summary.objects && !line.contains(QLatin1String(" objects"));
            line += inObjects ? QStringLiteral(", in %1 objects").arg(summary.objects) : QString();
            line += object.isEmpty() ? QString() : QStringLiteral(", first %1").arg(object);
        }
        if (!summary.first->example.isEmpty() && summary.first->example != object)
            line += QStringLiteral(" (%1)").arg(summary.first->example);
        lines.append(line);
    }
    return lines;
}

QString ExportReport::findingsHtml() const
{
    if (m_findings.empty())
        return {};
    QString html = QStringLiteral("<b>Please note:</b><ul>");
    for (const QString& line : findingLines())
        html += QStringLiteral("<li>") + line.toHtmlEscaped() + QStringLiteral("</li>");
    return html + QStringLiteral("</ul>");
}

} // namespace kpFormats
