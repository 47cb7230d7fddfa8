// SPDX-License-Identifier: MIT
#include "export/Findings.h"

#include <QJsonObject>

namespace kpFormats
{

namespace
{

QString keyOf(const QString& kind, const QString& object)
{
    return kind + QChar::Null + object;
}

/// "polygon"; empty for something else than an object.
QString typeText(const FindingObject& object)
{
    return object.type ? QString::fromStdString(typeKey(*object.type)) : QString();
}

} // namespace

void Findings::note(const FindingKind& kind, const FindingObject& object, qint64 count, const QString& example,
                    const QString& value)
{
    if (count <= 0)
        return;
    const Finding finding{&kind, value, object, count, example};
    const QString key = keyOf(finding.kind(), object.id != 0 ? QString::number(object.id) : object.name);
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
        QJsonObject entry{{QStringLiteral("kind"), finding.kind()},
                          {QStringLiteral("object"), finding.object.name},
                          {QStringLiteral("count"), finding.count},
                          {QStringLiteral("example"), finding.example}};
        if (finding.object.id != 0) {
            entry.insert(QStringLiteral("id"), finding.object.id);
            entry.insert(QStringLiteral("type"), typeText(finding.object));
        }
        findings.append(entry);
    }
    return findings;
}

std::vector<Findings::Summary> Findings::summaries() const
{
    // A user of a thousand objects wants to know what happened, not a thousand times that it did.
    std::vector<Summary> summaries;
    QHash<QString, std::size_t> places;
    for (const Finding& finding : m_findings) {
        const QString key = keyOf(finding.kind(), typeText(finding.object));
        const auto place = places.constFind(key);
        const std::size_t index = place == places.constEnd() ? summaries.size() : *place;
        if (index == summaries.size()) {
            places.insert(key, index);
            summaries.emplace_back();
        }
        summaries[index].findings.push_back(&finding);
        summaries[index].count += finding.count;
    }
    return summaries;
}

QJsonArray Findings::summaryToJson() const
{
    QJsonArray all;
    for (const Summary& summary : summaries()) {
        const Finding& first = *summary.findings.front();
        QJsonArray ids;
        for (const Finding* finding : summary.findings) {
            if (finding->object.id != 0)
                ids.append(finding->object.id);
        }
        all.append(QJsonObject{{QStringLiteral("kind"), first.kind()},
                               {QStringLiteral("type"), typeText(first.object)},
                               {QStringLiteral("count"), summary.count},
                               {QStringLiteral("ids"), ids},
                               {QStringLiteral("example"), first.example}});
    }
    return all;
}

QStringList Findings::lines() const
{
    QStringList lines;
    for (const Summary& summary : summaries()) {
        const Finding& first = *summary.findings.front();
        const QString& object = first.object.name;
        const auto objects = static_cast<qint64>(summary.findings.size());
        QString line = first.text(summary.count);
        if (objects == 1) {
            line.prepend(object.isEmpty() ? QString() : object + QStringLiteral(": "));
        } else {
            const bool inObjects = summary.count > objects && !line.contains(QLatin1String(" objects"));
            const QString type = first.object.type ? typeName(*first.object.type) : QStringLiteral("objects");
            line += inObjects ? QStringLiteral(", in %1 %2").arg(objects).arg(type) : QString();
            line += object.isEmpty() ? QString() : QStringLiteral(", first %1").arg(object);
        }
        if (!first.example.isEmpty() && first.example != object)
            line += QStringLiteral(" (%1)").arg(first.example);
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
