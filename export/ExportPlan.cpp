// SPDX-License-Identifier: MIT
#include "export/ExportPlan.h"

#include "export/ExportError.h"
#include "export/OutputTransaction.h"
#include "export/SizeTrial.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QStorageInfo>

#include <algorithm>

namespace kpFormats
{

namespace
{

FileOutcome foreseenOutcome(const PreparedExport::Output& output)
{
    FileOutcome outcome;
    outcome.path = output.planned.path;
    outcome.failedObjects = output.failedObjects;
    outcome.error = output.error;
    if (output.file) {
        for (const ModelObject* object : output.file->file().objects) {
            outcome.objects.append(object->name);
            outcome.ids.append(object->id);
        }
    }
    try {
        if (outcome.written())
            OutputTransaction::requireWritable(outcome.path);
    } catch (const ExportError& error) {
        outcome.error = error.reason();
    }
    return outcome;
}

} // namespace

int ExportPlan::replaced() const
{
    return static_cast<int>(
        std::count_if(outputs.begin(), outputs.end(), [](const Output& output) { return output.replaces; }));
}

int ExportPlan::refused() const
{
    const std::vector<FileOutcome>& files = foreseen.files();
    return static_cast<int>(
        std::count_if(files.begin(), files.end(), [](const FileOutcome& file) { return !file.written(); }));
}

qint64 ExportPlan::bytes() const
{
    qint64 sum = 0;
    for (const Output& output : outputs)
        sum += output.bytes;
    return sum;
}

QString ExportPlan::summary() const
{
    QString text = outputs.size() == 1 ? QStringLiteral("1 file") : QStringLiteral("%1 files").arg(outputs.size());
    if (replaced() > 0)
        text += outputs.size() == 1 ? QStringLiteral(", which replaces an existing one")
                : replaced() == 1   ? QStringLiteral(", 1 of which replaces an existing one")
                                    : QStringLiteral(", %1 of which replace existing ones").arg(replaced());
    if (refused() > 0)
        text += outputs.size() == 1 ? QStringLiteral(", which cannot be written")
                                    : QStringLiteral("; %1 of them cannot be written").arg(refused());
    if (bytes() > 0 || refused() == 0)
        text += QStringLiteral("; about %1").arg(sizeText(bytes()));
    if (freeBytes >= 0)
        text += QStringLiteral(", %1 are free").arg(sizeText(freeBytes));
    return text;
}

QJsonObject ExportPlan::toJson(const QString& formatKey) const
{
    QJsonArray files;
    for (std::size_t index = 0; index < outputs.size(); ++index) {
        const Output& output = outputs[index];
        const FileOutcome& outcome = foreseen.files()[index];
        QJsonObject entry{
            {QStringLiteral("path"), output.path},
            {QStringLiteral("state"), output.replaces ? QStringLiteral("overwrite") : QStringLiteral("new")},
            {QStringLiteral("renamedFrom"), output.renamedFrom},
            {QStringLiteral("objects"), QJsonArray::fromStringList(output.objects)},
            {QStringLiteral("sidecars"), QJsonArray::fromStringList(output.sidecars)},
            {QStringLiteral("vertices"), output.vertices},
            {QStringLiteral("estimatedBytes"), output.bytes}};
        if (!outcome.written())
            entry.insert(QStringLiteral("error"), outcome.error);
        if (!outcome.failedObjects.empty())
            entry.insert(QStringLiteral("failedObjects"), outcome.failedJson());
        files.append(entry);
    }
    return {{QStringLiteral("format"), formatKey},
            {QStringLiteral("dryRun"), true},
            {QStringLiteral("files"), files},
            {QStringLiteral("findings"), foreseen.findings.toJson()},
            {QStringLiteral("summary"), foreseen.findings.summaryToJson()},
            {QStringLiteral("estimatedBytes"), bytes()},
            {QStringLiteral("freeBytes"), freeBytes}};
}

ExportPlan planOf(const PreparedExport& prepared)
{
    ExportPlan plan;
    plan.foreseen.findings = prepared.findings;
    SizeTrial sizes(prepared.format(), prepared.selection(), prepared.settings());
    for (const PreparedExport::Output& foreseen : prepared.outputs()) {
        const QFileInfo info(foreseen.planned.path);
        ExportPlan::Output output;
        output.path = foreseen.planned.path;
        output.renamedFrom = foreseen.planned.renamedFrom;
        output.replaces = info.isFile();
        for (const ModelObject* object : foreseen.planned.objects)
            output.objects.append(object->name);
        const FileOutcome outcome = foreseenOutcome(foreseen);
        if (outcome.written()) {
            const PlannedFile& file = foreseen.file->file();
            output.bytes = sizes.bytesOf(file);
            for (const ModelObject* object : file.objects)
                output.vertices += object->rowCount();
            for (const QString& sidecar : foreseen.file->earlierSidecars())
                output.sidecars.append(QFileInfo(sidecar).fileName());
        }
        plan.foreseen.findings.add(foreseen.findings);
        plan.foreseen.add(outcome);
        plan.outputs.push_back(output);
    }
    const QString& path = prepared.selection().path;
    const QStorageInfo disk(QFileInfo(path).isDir() ? path : QFileInfo(path).absolutePath());
    if (disk.isValid())
        plan.freeBytes = disk.bytesAvailable();
    return plan;
}

} // namespace kpFormats
