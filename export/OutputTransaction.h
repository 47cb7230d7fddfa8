// SPDX-License-Identifier: MIT
#pragma once

#include "export/CommitJournal.h"
#include "export/WaitForOthers.h"
#include "model/kpFormatsExport.h"

#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <vector>

namespace kpFormats
{

class StagingFolder;

/// All-or-nothing output. Each target is written, sidecars included, in a folder of its own beside the target; commit()
/// moves everything into place together. What has not been committed when the transaction ends is removed and the
/// earlier files are as they were. A target that is a device or a pipe is written directly.
///
/// A symbolic link is written through; a replaced file's permissions, access list, extended attributes and, where
/// allowed, owner stay. What a killed run has left behind is finished or removed by the next one in the same directory.
class KPFORMATS_EXPORT OutputTransaction
{
public:
    enum class Existing {
        Replace, ///< whoever asks for the files has agreed to lose those of the same names
        Refuse   ///< a file that is there, even one that has come during the run, is an error
    };

    explicit OutputTransaction(Existing existing = Existing::Replace);
    ~OutputTransaction();
    OutputTransaction(const OutputTransaction&) = delete;
    OutputTransaction& operator=(const OutputTransaction&) = delete;

    /// \throws ExportError when nothing can be written to the file: it is a directory, lies in none, or is protected
    static void requireWritable(const QString& target);
    /// \a sidecars are the extensions of files that belong to the target: those of an earlier export that are not
    /// written again are removed at commit().
    /// \returns the path to write to: the target's name in another folder
    /// \throws ExportError when nothing can be written there
    QString stage(const QString& target, const QStringList& sidecars = {});
    /// Gives up one target; its earlier files stay.
    void drop(const QString& target);
    /// The files, under their final names, that now wait to be moved for a target: itself and its sidecars.
    QStringList waiting(const QString& target) const;
    /// Waits while another run commits in the same directory.
    /// \returns false when the wait was given up because the user has cancelled; every earlier file is as it was
    /// \throws ExportError naming the file that could not be moved; then every earlier file is back, or the message says
    /// where it is
    bool commit(const WaitForOthers& wait = {});

private:
    struct Target
    {
        QString name;                    ///< as given
        QString resolved;                ///< absolute, links followed
        StagingFolder* folder = nullptr; ///< null for a device
        QByteArray room;
        QStringList sidecars;
    };
    /// What a commit does in one directory.
    struct Batch
    {
        StagingFolder* folder = nullptr;
        std::vector<JournalMove> moves;
        QStringList targets; ///< as given, of each move, for messages
    };

    std::vector<Target>::const_iterator find(const QString& target) const;
    std::vector<Batch> batches() const;
    void addMoves(const Target& target, Batch& batch) const;
    void look(Batch& batch) const;
    void requireFree(const Folder& directory, const QString& name, const QString& target) const;
    static void carryOut(std::vector<Batch>& batches);

    Existing m_existing;
    std::map<QString, std::unique_ptr<StagingFolder>> m_folders; ///< by directory
    std::vector<Target> m_targets;
};

} // namespace kpFormats
