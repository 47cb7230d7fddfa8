// SPDX-License-Identifier: MIT
#include "export/Findings.h"

#include <QJsonObject>

namespace kpFormats
{

void Findings::note(const FindingKind& kind, const QString& object, qint64 count, const QString& example,
                    const QString& value)
{
    if (count <= 0)
        return;
    const Finding finding{&kind, value, object, count, example};
    const QPair<QString, QString> key{finding.kind(), object};
    const auto found = m_places.constFind(key);
    if (found != m_places.constEnd()) {
        m_findings[*found].count += count;
        return;
    }
    m_places.insert(key, m_findings.size());
    m_findings.push_back(finding);
}

void Findings::add(const Findings& other)
{
    for (const Finding& finding : other.all())
        note(*finding.sort, finding.object, finding.count, finding.example, finding.value);
}

QJsonArray Findings::toJson() const
{
    QJsonArray findings;
    for (const Finding& finding : m_findings) {
        findings.append(QJsonObject{{QStringLiteral("kind"), finding.kind()},
                                    {QStringLiteral("object"), finding.object},
                                    {QStringLiteral("count"), finding.count},
                                    {QStringLiteral("example"), finding.example}});
    }
    return findings;
}

QStringList Findings::lines() const
{
    // A user of a thousand objects wants to know what happened, not a thousand times that it did.
    struct Summary
    {
        const Finding* first;
        qint64 count = 0;
        int objects = 0;
    };
    std::vector<Summary> summaries;
    QHash<QString, std::size_t> places;
    for (const Finding& finding : m_findings) {
        const auto place = places.constFind(finding.kind());
        if (place == places.constEnd()) {
            places.insert(finding.kind(), summaries.size());
            summaries.push_back({&finding, finding.count, 1});
            continue;
        }
        summaries[*place].count += finding.count;
        ++summaries[*place].objects;
    }
    QStringList lines;
    for (const Summary& summary : summaries) {
        const QString& object = summary.first->object;
        QString line = summary.first->text(summary.count);
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

QString Findings::toHtml() const
{
    if (m_findings.empty())
        return {};
    QString html = QStringLiteral("<b>Please note:</b><ul>");
    for (const QString& line : lines())
        html += QStringLiteral("<li>") + line.toHtmlEscaped() + QStringLiteral("</li>");
    return html + QStringLiteral("</ul>");
}

} // namespace kpFormats
