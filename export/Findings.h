// SPDX-License-Identifier: MIT
#pragma once

#include "export/Finding.h"
#include "model/kpFormatsExport.h"

#include <QHash>
#include <QJsonArray>
#include <QPair>
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
    void note(const FindingKind& kind, const QString& object, qint64 count, const QString& example,
              const QString& value = QString());
    void add(const Findings& other);

    const std::vector<Finding>& all() const { return m_findings; }
    bool isEmpty() const { return m_findings.empty(); }

    QJsonArray toJson() const;
    /// As HTML for the wizard's report; empty when there are none.
    QString toHtml() const;
    /// One line per kind of finding, with its first example.
    QStringList lines() const;

private:
    std::vector<Finding> m_findings;
    QHash<QPair<QString, QString>, std::size_t> m_places; ///< of a finding by kind and object
};

} // namespace kpFormats
