// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "export/Verification.h"
#include "model/kpFormatsExport.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>
#include <vector>

namespace kpFormats
{

/// An object that was left out of its file because it could not be written.
struct FailedObject
{
    QString name;
    QString reason; ///< cause and cure
    int id = 0;     ///< of the object
};

/// What became of one output file.
struct KPFORMATS_EXPORT FileOutcome
{
    QString path;
    QStringList objects;  ///< names of those written
    QVector<int> ids;     ///< of them: names may be alike
    QStringList sidecars; ///< names of the files written beside it that belong to it
    std::vector<FailedObject> failedObjects;
    std::optional<Verification> verification; ///< when the file was read again
    qint64 rows = 0;
    qint64 bytes = 0;
    QString error; ///< cause and cure; empty when the file was written

    bool written() const { return error.isEmpty(); }
    bool complete() const { return written() && failedObjects.empty(); }
    /// The objects that failed, with their reasons.
    QJsonArray failedJson() const;
};

/// The record of one run.
class KPFORMATS_EXPORT ExportReport
{
public:
    void add(const FileOutcome& outcome) { m_files.push_back(outcome); }

    const std::vector<FileOutcome>& files() const { return m_files; }
    std::vector<FileOutcome>& files() { return m_files; }
    /// Whether a file or an object could not be written.
    bool anyFailed() const;
    QJsonObject toJson(const QString& formatKey) const;

    Findings findings;
    bool cancelled = false;

private:
    std::vector<FileOutcome> m_files;
};

} // namespace kpFormats
