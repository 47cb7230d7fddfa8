// SPDX-License-Identifier: MIT
#include "export/ExportPlan.h"
#include "export/CommonFindings.h"

#include "export/ExportError.h"
#include "export/Foresight.h"
#include "export/OutputTransaction.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QLocale>
#include <QStorageInfo>

#include <algorithm>

namespace kpFormats
{

namespace
{

FileOutcome foreseenOutcome(const PlannedFile& file, const Foresight& foresight)
{
    FileOutcome outcome;
    outcome.path = file.path;
    outcome.failedObjects = foresight.failedObjects;
    outcome.error = foresight.error;
    for (const ModelObject* object : foresight.file.objects)
        outcome.objects.append(object->name);
    try {
        if (outcome.written())
            OutputTransaction::requireWritable(file.path);
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
            {QStringLiteral("estimatedBytes"), bytes()},
            {QStringLiteral("freeBytes"), freeBytes}};
}

ExportPlan makePlan(const ExportFormat& format, const ExportSelection& selection, const std::vector<PlannedFile>& files,
                    const ExportReport& foreseen)
{
    ExportPlan plan;
    plan.foreseen = foreseen;
    const QStringList extensions = format.sidecars();
    for (const PlannedFile& file : files) {
        const QFileInfo info(file.path);
        ExportPlan::Output output;
        output.path = file.path;
        output.renamedFrom = file.renamedFrom;
        output.replaces = info.isFile();
        const Foresight foresight = foresee(format, file, selection, plan.foreseen.findings);
        const FileOutcome outcome = foreseenOutcome(file, foresight);
        if (outcome.written())
            output.bytes = format.estimatedBytes(foresight.file, selection);
        for (const ModelObject* object : file.objects)
            output.objects.append(object->name);
        for (const ModelObject* object : foresight.file.objects)
            output.vertices += outcome.written() ? object->rowCount() : 0;
        plan.foreseen.add(outcome);
        if (!file.renamedFrom.isEmpty())
            plan.foreseen.findings.note(finding::renamedFile, file.renamedFrom, 1, info.fileName());
        const QString stem = info.absolutePath() + QLatin1Char('/') + info.completeBaseName() + QLatin1Char('.');
        for (const QString& extension : extensions) {
            if (QFileInfo(stem + extension).isFile())
                output.sidecars.append(info.completeBaseName() + QLatin1Char('.') + extension);
        }
        plan.outputs.push_back(output);
    }
    const QStorageInfo disk(QFileInfo(selection.path).isDir() ? selection.path
                                                              : QFileInfo(selection.path).absolutePath());
    if (disk.isValid())
        plan.freeBytes = disk.bytesAvailable();
    return plan;
}

QString sizeText(qint64 bytes)
{
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

} // namespace kpFormats
