// SPDX-License-Identifier: MIT
#pragma once

#include "export/CommitJournal.h"
#include "export/platform/Folder.h"
#include "model/kpFormatsExport.h"

#include <QString>

#include <vector>

namespace kpFormats
{

/// A hidden folder in a directory in which files are prepared and from which they are moved into place together. It is
/// the user's own and private, has a name that nobody can guess, and a journal that proves whose it is and what is to be
/// done. Its run holds a lock on it, so that the folder of one that was killed can be told from that of one at work;
/// the former are finished or removed when a new one is made. Nothing else is ever touched.
class KPFORMATS_EXPORT StagingFolder
{
public:
    /// \throws ExportError naming \a target when the folder cannot be made
    StagingFolder(const QString& directory, const QString& target);
    ~StagingFolder();
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    QString path() const { return m_path; }
    /// The directory in which it lies.
    const Folder& parent() const { return m_parent; }
    /// A new folder in it. \returns its name
    /// \throws ExportError naming \a target
    QByteArray newRoom(const QString& target);
    Folder room(const QByteArray& name) const { return m_folder.child(name); }
    void removeRoom(const QByteArray& name) const { m_folder.removeAll(name); }

    /// Writes down what is to be moved, and makes it durable. From then on all of it is moved, or all taken back, even
    /// when this run is killed. \returns 0 or the error number
    int decide(const std::vector<JournalMove>& moves);
    /// Keeps the earlier files that the moves replace, then moves, and makes it durable. \returns the index of the move
    /// that failed, or -1
    int carryOut(const std::vector<JournalMove>& moves, int& error) const;
    /// Notes that every folder of a commit has carried out its moves.
    void finish() const;
    /// Brings the earlier files back. False when one could not be brought back: then the folder stays, with them.
    bool takeBack(const std::vector<JournalMove>& moves);
    /// Where the earlier files are.
    QString keptPath() const;

private:
    CommitJournal journal() const { return CommitJournal(m_folder, m_name); }
    /// \returns 0, EAGAIN when another name is to be tried, or the error number
    int make();

    QString m_path;
    QByteArray m_name;
    Folder m_parent;
    Folder m_folder;
    int m_rooms = 0;
    bool m_kept = false;
};

} // namespace kpFormats
