// SPDX-License-Identifier: MIT
#include "export/ExportReport.h"

#include <algorithm>

namespace kpFormats
{

QJsonArray FileOutcome::failedJson() const
{
    QJsonArray failed;
    for (const FailedObject& object : failedObjects)
        failed.append(QJsonObject{{QStringLiteral("id"), object.id},
                                  {QStringLiteral("name"), object.name},
                                  {QStringLiteral("reason"), object.reason}});
    return failed;
}

bool ExportReport::anyFailed() const
{
    return std::any_of(m_files.begin(), m_files.end(), [](const FileOutcome& file) { return !file.complete(); });
}

QJsonObject ExportReport::toJson(const QString& formatKey) const
{
    QJsonArray files;
    for (const FileOutcome& file : m_files) {
        QJsonArray ids;
        for (const int id : file.ids)
            ids.append(id);
        QJsonObject entry{
            {QStringLiteral("path"), file.path},
            {QStringLiteral("objects"), QJsonArray::fromStringList(file.objects)},
            {QStringLiteral("ids"), ids},
            {QStringLiteral("outcome"), file.written() ? QStringLiteral("written") : QStringLiteral("failed")},
            {QStringLiteral("rows"), file.rows},
            {QStringLiteral("bytes"), file.bytes}};
        if (!file.written())
            entry.insert(QStringLiteral("error"), file.error);
        const QJsonArray failed = file.failedJson();
        if (!failed.isEmpty())
            entry.insert(QStringLiteral("failedObjects"), failed);
        if (file.verification)
            entry.insert(QStringLiteral("verification"), file.verification->toJson());
        files.append(entry);
    }
    return {{QStringLiteral("format"), formatKey},
            {QStringLiteral("cancelled"), cancelled},
            {QStringLiteral("files"), files},
            {QStringLiteral("findings"), findings.toJson()},
            {QStringLiteral("summary"), findings.summaryToJson()}};
}

} // namespace kpFormats
