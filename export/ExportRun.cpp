// SPDX-License-Identifier: MIT
#include "export/ExportRun.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
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

/// Writes one file, without the objects that cannot be written.
class FileRun
{
public:
    FileRun(const PreparedExport& prepared, PreparedExport::Output& output, OutputTransaction& transaction)
        : m_prepared(prepared)
        , m_output(output)
        , m_transaction(transaction)
    {
        m_outcome.path = output.planned.path;
        m_outcome.error = output.error;
    }

    FileOutcome run(kpBase::AbstractProgress& progress)
    {
        try {
            while (m_outcome.written() && !writeOnce(progress))
                m_transaction.drop(m_outcome.path);
        } catch (const ExportError& error) {
            giveUp(error.reason());
        } catch (const std::exception& error) {
            giveUp(QString::fromUtf8(error.what()));
        }
        m_outcome.failedObjects = m_output.failedObjects;
        if (m_output.file) {
            for (const ModelObject* object : m_output.file->file().objects) {
                m_outcome.objects.append(object->name);
                m_outcome.ids.append(object->id);
            }
        }
        return m_outcome;
    }
    /// What this file has lost.
    const Findings& findings() const { return m_findings; }

private:
    /// False when an object had to be left out, so that the file is to be written again.
    bool writeOnce(kpBase::AbstractProgress& progress)
    {
        if (!m_output.file) {
            giveUp(m_output.error);
            return true;
        }
        PreparedFile& file = *m_output.file;
        m_findings = m_output.findings;
        const QString path = m_transaction.stage(m_outcome.path, file.sidecars());
        try {
            m_outcome.rows = file.write(path, m_findings, &progress);
        } catch (const ObjectError& error) {
            m_prepared.leaveOut(m_output, *error.object(), error.reason());
            return false;
        }
        // An empty file is not a success.
        const std::vector<const ModelObject*>& objects = file.file().objects;
        if (m_outcome.rows == 0 && !objects.empty() && !progress.isCancelled())
            throw ExportError(m_outcome.path,
                              QStringLiteral("nothing of %1 has a place in the file").arg(objects.front()->name),
                              QStringLiteral("the notes say what was left out; choose another object or format"));
        const bool staged = path != QFileInfo(m_outcome.path).absoluteFilePath();
        if (staged)
            measure(path);
        if (m_prepared.verify && !progress.isCancelled())
            readBack(path, staged);
        return true;
    }

    /// Looks at what stands in the staging folder.
    void measure(const QString& path)
    {
        m_outcome.bytes = 0;
        m_outcome.sidecars.clear();
        const QFileInfo staged(path);
        for (const QFileInfo& file : staged.absoluteDir().entryInfoList(QDir::Files | QDir::Hidden, QDir::Name)) {
            m_outcome.bytes += file.size();
            if (file.fileName() != staged.fileName())
                m_outcome.sidecars.append(file.fileName());
        }
    }

    void readBack(const QString& path, bool staged)
    {
        if (!staged) {
            m_findings.note(finding::notVerified, QString(), 1, QStringLiteral("a device cannot be read again"));
            return;
        }
        m_outcome.verification = m_output.file->verify(path);
        if (!m_outcome.verification) {
            m_findings.note(finding::notVerified, QString(), 1,
                            QStringLiteral("%1 has no second reader").arg(m_prepared.format().info().displayName));
            return;
        }
        const QString fault = m_outcome.verification->fault();
        if (!fault.isEmpty())
            throw ExportError(
                m_outcome.path,
                QStringLiteral("read again by %1 it differs: %2").arg(m_outcome.verification->reader(), fault),
                QStringLiteral("report this; an earlier file is as it was"));
    }

    void giveUp(const QString& reason)
    {
        m_transaction.drop(m_outcome.path);
        m_outcome.error = reason;
    }

    const PreparedExport& m_prepared;
    PreparedExport::Output& m_output;
    OutputTransaction& m_transaction;
    Findings m_findings;
    FileOutcome m_outcome;
};

} // namespace

ExportReport runExport(PreparedExport& prepared, kpBase::AbstractProgress* progress)
{
    ExportReport report;
    report.findings = prepared.findings;
    using Existing = OutputTransaction::Existing;
    const ExportSelection& selection = prepared.selection();
    OutputTransaction transaction(selection.overwrite ? Existing::Replace : Existing::Refuse);
    double total = 0;
    for (const PreparedExport::Output& output : prepared.outputs())
        total += output.wanted ? weightOf(output.planned.objects) : 0.0;
    if (progress)
        progress->progressStarted(true);
    ShareOfProgress share(progress, total);
    for (PreparedExport::Output& output : prepared.outputs()) {
        if (!output.wanted)
            continue;
        share.next(weightOf(output.planned.objects));
        FileRun file(prepared, output, transaction);
        report.add(file.run(share));
        report.findings.add(file.findings());
        if (share.isCancelled()) {
            report.cancelled = true;
            return report;
        }
    }
    WaitForOthers wait;
    wait.goOn = [&share, &selection](const QString& holder) {
        if (selection.waiting)
            selection.waiting(holder);
        return !share.isCancelled();
    };
    try {
        if (!transaction.commit(wait)) {
            report.cancelled = true;
            return report;
        }
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
    return report;
}

} // namespace kpFormats
