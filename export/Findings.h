// SPDX-License-Identifier: MIT
#pragma once

#include "export/Finding.h"
#include "model/kpFormatsExport.h"

#include <QHash>
#include <QJsonArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace kpFormats
{

/// What was lost or changed, each kind and object once.
class KPFORMATS_EXPORT Findings
{
public:
    /// Adds to the finding of that kind and object; the first example stays. A count of 0 is not a finding.
    void note(const FindingKind& kind, const FindingObject& object, qint64 count, const QString& example,
              const QString& value = QString());
    void add(const Findings& other);

    const std::vector<Finding>& all() const { return m_findings; }
    bool isEmpty() const { return m_findings.empty(); }

    QJsonArray toJson() const;
    /// The findings of each kind and type of object as one, with the ids of the objects.
    QJsonArray summaryToJson() const;
    /// As HTML for the wizard's report; empty when there are none.
    QString toHtml() const;
    /// One line per kind of finding and type of object, with its first example.
    QStringList lines() const;

private:
    /// The findings of one kind in objects of one type.
    struct Summary
    {
        std::vector<const Finding*> findings;
        qint64 count = 0;
    };

    std::vector<Summary> summaries() const;

    std::vector<Finding> m_findings;
    QHash<QString, std::size_t> m_places; ///< of a finding by kind and object
};

} // namespace kpFormats
