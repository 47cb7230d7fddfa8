// SPDX-License-Identifier: MIT
#include "app/jobs/ExportRun.h"

#include "app/jobs/ExportError.h"
#include "app/jobs/OutputTransaction.h"
#include "app/jobs/ShareOfProgress.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace refhost
{

namespace
{

FileOutcome outcomeOf(const PlannedFile& file)
{
    FileOutcome outcome;
    outcome.path = file.path;
    for (const ModelObject* object : file.objects)
        outcome.objects.append(object->name);
    return outcome;
}

double weightOf(const PlannedFile& file)
{
    double weight = 0;
    for (const ModelObject* object : file.objects)
        weight += object->weight();
    return weight;
}

qint64 bytesOf(const QString& staged)
{
    qint64 bytes = 0;
    for (const QFileInfo& file : QFileInfo(staged).absoluteDir().entryInfoList(QDir::Files | QDir::Hidden))
        bytes += file.size();
    return bytes;
}

} // namespace

bool runExport(ExportFormat& format, const ExportSelection& selection, const std::vector<PlannedFile>& files,
               kpBase::AbstractProgress* progress, ExportReport& report)
{
    OutputTransaction transaction;
    double total = 0;
    for (const PlannedFile& file : files)
        total += weightOf(file);
    if (progress)
        progress->progressStarted(true);
    ShareOfProgress share(progress, total);
    for (const PlannedFile& file : files) {
        FileOutcome outcome = outcomeOf(file);
        share.next(weightOf(file));
        try {
            const QString path = transaction.stage(file.path, format.sidecars());
            outcome.rows = format.write(file, path, selection, report, &share);
            outcome.bytes = path == file.path ? 0 : bytesOf(path);
        } catch (const ExportError& error) {
            transaction.drop(file.path);
            outcome.error = error.reason();
        } catch (const std::exception& error) {
            transaction.drop(file.path);
            outcome.error = QString::fromUtf8(error.what());
        }
        report.add(outcome);
        if (share.isCancelled()) {
            report.cancelled = true;
            return false;
        }
    }
    try {
        transaction.commit();
    } catch (const ExportError& error) {
        for (FileOutcome& outcome : report.files()) {
            if (outcome.written())
                outcome.error = outcome.path == error.file()
                                    ? error.reason()
                                    : QStringLiteral("left as it was because %1 failed").arg(error.file());
        }
    }
    if (progress)
        progress->progressChanged(100);
    return !report.anyFailed();
}

} // namespace refhost
