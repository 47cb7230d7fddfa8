// SPDX-License-Identifier: MIT
#include "export/ExportRun.h"
#include "export/CommonFindings.h"

#include "export/ExportError.h"
#include "export/Foresight.h"
#include "export/ObjectError.h"
#include "export/OutputTransaction.h"
#include "model/ShareOfProgress.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace kpFormats
{

namespace
{

qint64 bytesOf(const QString& staged)
{
    qint64 bytes = 0;
    for (const QFileInfo& file : QFileInfo(staged).absoluteDir().entryInfoList(QDir::Files | QDir::Hidden))
        bytes += file.size();
    return bytes;
}

/// Writes one file, without the objects that cannot be written.
class FileRun
{
public:
    FileRun(ExportFormat& format, const ExportSelection& selection, const PlannedFile& file,
            OutputTransaction& transaction, ExportReport& report)
        : m_format(format)
        , m_selection(selection)
        , m_file(file)
        , m_transaction(transaction)
        , m_report(report)
    {
        m_outcome.path = file.path;
    }

    FileOutcome run(kpBase::AbstractProgress& progress)
    {
        // What is lost is noted where it is written.
        Findings unread;
        const Foresight foresight = foresee(m_format, m_file, m_selection, unread);
        m_file = foresight.file;
        m_outcome.failedObjects = foresight.failedObjects;
        m_outcome.error = foresight.error;
        try {
            while (m_outcome.written() && !writeOnce(progress))
                m_transaction.drop(m_file.path);
        } catch (const ExportError& error) {
            giveUp(error.reason());
        } catch (const std::exception& error) {
            giveUp(QString::fromUtf8(error.what()));
        }
        for (const ModelObject* object : m_file.objects)
            m_outcome.objects.append(object->name);
        return m_outcome;
    }

private:
    /// False when an object had to be left out, so that the file is to be written again.
    bool writeOnce(kpBase::AbstractProgress& progress)
    {
        if (m_file.objects.empty() && !m_outcome.failedObjects.empty()) {
            giveUp(noneLeftError(m_outcome.failedObjects));
            return true;
        }
        const QString path = m_transaction.stage(m_file.path, m_format.sidecars());
        try {
            m_outcome.rows = m_format.write(m_file, path, m_selection, m_report.findings, &progress);
        } catch (const ObjectError& error) {
            leaveOut(*error.object(), error.reason());
            return false;
        }
        // An empty file is no success.
        if (m_outcome.rows == 0 && !m_file.objects.empty() && !progress.isCancelled())
            throw ExportError(m_file.path,
                              QStringLiteral("nothing of %1 has a place in the file").arg(m_file.objects.front()->name),
                              QStringLiteral("the notes say what was left out; choose another object or format"));
        const bool staged = path != QFileInfo(m_file.path).absoluteFilePath();
        m_outcome.bytes = staged ? bytesOf(path) : 0;
        if (m_selection.verify && staged && !progress.isCancelled())
            verify(path);
        return true;
    }

    void verify(const QString& path)
    {
        m_outcome.verification = m_format.verify(m_file, path, m_selection);
        const Verification& found = m_outcome.verification;
        if (found.reader.isEmpty())
            m_report.findings.note(finding::notVerified, QString(), 1,
                                   QStringLiteral("%1 has no second reader").arg(m_format.info().displayName));
        else if (!found.fault.isEmpty())
            throw ExportError(m_file.path,
                              QStringLiteral("read again by %1 it differs: %2").arg(found.reader, found.fault),
                              QStringLiteral("report this; an earlier file is as it was"));
    }

    void leaveOut(const ModelObject& object, const QString& reason)
    {
        m_outcome.failedObjects.push_back({object.name, reason});
        m_file.objects.erase(std::remove(m_file.objects.begin(), m_file.objects.end(), &object), m_file.objects.end());
    }

    void giveUp(const QString& reason)
    {
        m_transaction.drop(m_file.path);
        m_outcome.error = reason;
    }

    ExportFormat& m_format;
    const ExportSelection& m_selection;
    PlannedFile m_file;
    OutputTransaction& m_transaction;
    ExportReport& m_report;
    FileOutcome m_outcome;
};

} // namespace

bool runExport(ExportFormat& format, const ExportSelection& selection, const std::vector<PlannedFile>& files,
               kpBase::AbstractProgress* progress, ExportReport& report)
{
    OutputTransaction transaction;
    double total = 0;
    for (const PlannedFile& file : files)
        total += weightOf(file.objects);
    if (progress)
        progress->progressStarted(true);
    ShareOfProgress share(progress, total);
    for (const PlannedFile& file : files) {
        share.next(weightOf(file.objects));
        report.add(FileRun(format, selection, file, transaction, report).run(share));
        if (!file.renamedFrom.isEmpty())
            report.findings.note(finding::renamedFile, file.renamedFrom, 1, QFileInfo(file.path).fileName());
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

} // namespace kpFormats
