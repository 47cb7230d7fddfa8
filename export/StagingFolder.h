// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

/// A hidden folder in a directory in which files are prepared. Its owner holds a lock on it, so that the folder of a
/// run that was killed can be told from that of one that is at work; the former are removed when a new one is made,
/// after a commit that had begun has been finished.
class KPFORMATS_EXPORT StagingFolder
{
public:
    /// \throws ExportError naming \a target when the folder cannot be made
    StagingFolder(const QString& directory, const QString& target);
    ~StagingFolder();
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    /// A new folder in it.
    QString newRoom();
    /// A place for earlier files while a commit lasts; made when first asked for.
    QString backupRoom();

private:
    static void removeAbandoned(const QString& directory);

    QString m_path;
    int m_lock = -1;
    int m_rooms = 0;
};

} // namespace kpFormats
