// SPDX-License-Identifier: MIT
#include "app/jobs/ExportPlan.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QLocale>
#include <QStorageInfo>

#include <algorithm>

namespace refhost
{

int ExportPlan::replaced() const
{
    return static_cast<int>(std::count_if(outputs.begin(), outputs.end(), [](const Output& output) { return output.replaces; }));
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
    text += QStringLiteral("; about %1").arg(sizeText(bytes()));
    if (freeBytes >= 0)
        text += QStringLiteral(", %1 are free").arg(sizeText(freeBytes));
    return text;
}

QJsonObject ExportPlan::toJson(const QString& formatKey) const
{
    QJsonArray files;
    for (const Output& output : outputs) {
        files.append(QJsonObject{{QStringLiteral("path"), output.path},
                                 {QStringLiteral("state"), output.replaces ? QStringLiteral("overwrite") : QStringLiteral("new")},
                                 {QStringLiteral("renamedFrom"), output.renamedFrom},
                                 {QStringLiteral("objects"), QJsonArray::fromStringList(output.objects)},
                                 {QStringLiteral("sidecars"), QJsonArray::fromStringList(output.sidecars)},
                                 {QStringLiteral("rows"), output.rows},
                                 {QStringLiteral("estimatedBytes"), output.bytes}});
    }
    return {{QStringLiteral("format"), formatKey},
            {QStringLiteral("dryRun"), true},
            {QStringLiteral("files"), files},
            {QStringLiteral("estimatedBytes"), bytes()},
            {QStringLiteral("freeBytes"), freeBytes}};
}

ExportPlan makePlan(const ExportFormat& format, const ExportSelection& selection, const std::vector<PlannedFile>& files)
{
    ExportPlan plan;
    const QStringList extensions = format.sidecars();
    for (const PlannedFile& file : files) {
        const QFileInfo info(file.path);
        ExportPlan::Output output;
        output.path = file.path;
        output.renamedFrom = file.renamedFrom;
        output.replaces = info.isFile();
        output.bytes = format.estimatedBytes(file, selection);
        for (const ModelObject* object : file.objects) {
            output.objects.append(object->name);
            output.rows += object->rowCount();
        }
        const QString stem = info.absolutePath() + QLatin1Char('/') + info.completeBaseName() + QLatin1Char('.');
        for (const QString& extension : extensions) {
            if (QFileInfo(stem + extension).isFile())
                output.sidecars.append(info.completeBaseName() + QLatin1Char('.') + extension);
        }
        plan.outputs.push_back(output);
    }
    const QStorageInfo disk(QFileInfo(selection.path).isDir() ? selection.path : QFileInfo(selection.path).absolutePath());
    if (disk.isValid())
        plan.freeBytes = disk.bytesAvailable();
    return plan;
}

QString sizeText(qint64 bytes)
{
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

} // namespace refhost
