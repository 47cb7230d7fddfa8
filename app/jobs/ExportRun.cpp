// SPDX-License-Identifier: MIT
#include "app/jobs/ExportRun.h"

#include "app/jobs/ExportError.h"
#include "app/jobs/OutputTransaction.h"
#include "host/data/AbstractProgress.h"

#include <QFileInfo>

#include <algorithm>

namespace refhost
{

namespace
{

/// The progress of one file as a share of the whole run.
class ShareOfProgress : public kpBase::AbstractProgress
{
public:
    ShareOfProgress(kpBase::AbstractProgress* whole, double first, double share)
        : m_whole(whole)
        , m_first(first)
        , m_share(share)
    {
    }

    void progressStarted(bool) override {}
    void progressChanged(int percent) override
    {
        if (m_whole)
            m_whole->progressChanged(static_cast<int>(m_first + m_share * percent));
    }
    bool isCancelled() const override { return m_whole && m_whole->isCancelled(); }
    void progressFinished() override {}

private:
    kpBase::AbstractProgress* m_whole;
    double m_first;
    double m_share;
};

FileOutcome outcomeOf(const PlannedFile& file)
{
    FileOutcome outcome;
    outcome.path = file.path;
    for (const ModelObject* object : file.objects)
        outcome.objects.append(object->name);
    return outcome;
}

} // namespace

bool runExport(ExportFormat& format, const ExportSelection& selection, const std::vector<PlannedFile>& files,
               kpBase::AbstractProgress* progress, ExportReport& report)
{
    OutputTransaction transaction;
    double total = 0;
    for (const PlannedFile& file : files) {
        for (const ModelObject* object : file.objects)
            total += object->vertexCount();
    }
    if (progress)
        progress->progressStarted(true);
    double done = 0;
    for (const PlannedFile& file : files) {
        FileOutcome outcome = outcomeOf(file);
        double size = 0;
        for (const ModelObject* object : file.objects)
            size += object->vertexCount();
        ShareOfProgress share(progress, total > 0 ? 100.0 * done / total : 0.0, total > 0 ? size / total : 0.0);
        try {
            const QString path = transaction.stage(file.path);
            outcome.rows = format.write(file, path, selection, report, &share);
            outcome.bytes = QFileInfo(path).size();
        } catch (const ExportError& error) {
            transaction.drop(file.path);
            outcome.error = error.reason();
        } catch (const std::exception& error) {
            transaction.drop(file.path);
            outcome.error = QString::fromUtf8(error.what());
        }
        report.add(outcome);
        done += size;
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
