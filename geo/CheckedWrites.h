// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QByteArray>
#include <QString>

#include <mutex>
#include <optional>

namespace kpFormats
{

/// Watches what a GDAL driver does to the files of one folder while it lives, and keeps the first thing that went wrong:
/// not every driver tells of a write, flush or close that failed. A driver that is given pathFor() reaches the files
/// through a file system of ours; that is so of everything that it opens beside that path too, and of SQLite inside it.
class KPFORMATS_EXPORT CheckedWrites
{
public:
    struct Failure
    {
        QString file;   ///< its name
        QString action; ///< "write", "flush", "close" ...
        int error;      ///< of the system
    };

    /// \a path is a file in the folder.
    explicit CheckedWrites(const QString& path);
    ~CheckedWrites();
    CheckedWrites(const CheckedWrites&) = delete;
    CheckedWrites& operator=(const CheckedWrites&) = delete;

    /// The name under which a driver is to know a file.
    static QString pathFor(const QString& path);
    /// A driver's message with the files' own names.
    static QString inOwnNames(QString message);

    std::optional<Failure> failure() const;
    /// Called by the file system. \a path is the file's own.
    static void note(const QByteArray& path, const char* action, int error);

private:
    QByteArray m_folder; ///< with a slash at the end
    mutable std::mutex m_mutex;
    std::optional<Failure> m_failure;
};

} // namespace kpFormats
