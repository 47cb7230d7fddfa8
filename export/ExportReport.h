// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "model/kpFormatsExport.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QPair>
#include <QString>
#include <QStringList>

#include <vector>

namespace kpFormats
{

/// Something that was lost or changed on the way to a file, counted.
struct Finding
{
    QString kind;   ///< "missing attribute", "renamed", "ambiguous text" ...
    QString object; ///< name of the object, or empty
    qint64 count = 0;
    QString example; ///< the first case in words
};

/// An object that was left out of its file because it could not be written.
struct FailedObject
{
    QString name;
    QString reason; ///< cause and cure
};

/// What became of one output file.
struct KPFORMATS_EXPORT FileOutcome
{
    QString path;
    QStringList objects; ///< names of those written
    std::vector<FailedObject> failedObjects;
    Verification verification;
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
    /// Adds to the finding of that kind and object; the first example stays.
    void note(const QString& kind, const QString& object, qint64 count, const QString& example);
    void add(const FileOutcome& outcome) { m_files.push_back(outcome); }
    /// Adds the findings of another.
    void add(const ExportReport& other);

    const std::vector<Finding>& findings() const { return m_findings; }
    const std::vector<FileOutcome>& files() const { return m_files; }
    std::vector<FileOutcome>& files() { return m_files; }
    /// Whether a file or an object could not be written.
    bool anyFailed() const;

    bool cancelled = false;

    QJsonObject toJson(const QString& formatKey) const;
    QJsonArray findingsJson() const;
    /// The findings as HTML for the wizard's report; empty when there are none.
    QString findingsHtml() const;
    /// One line per kind of finding, with its first example.
    QStringList findingLines() const;

private:
    std::vector<Finding> m_findings;
    QHash<QPair<QString, QString>, std::size_t> m_places; ///< of a finding by kind and object
    std::vector<FileOutcome> m_files;
};

} // namespace kpFormats
