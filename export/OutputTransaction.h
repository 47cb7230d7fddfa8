// SPDX-License-Identifier: MIT
#pragma once

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
/// earlier files are as they were. A target that is a device is written directly.
///
/// A symbolic link is written through; a replaced file's permissions and, where allowed, owner stay. Folders that a
/// killed run has left behind are removed by the next one in the same directory.
class KPFORMATS_EXPORT OutputTransaction
{
public:
    OutputTransaction();
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
    /// \throws ExportError naming the file that could not be moved; then every earlier file is back.
    void commit();

private:
    struct Target
    {
        QString name;     ///< as given
        QString resolved; ///< absolute, links followed
        QString folder;   ///< where it is written; empty for a device
        QStringList sidecars;
    };
    struct Move
    {
        QString target; ///< as given, for messages
        QString from;   ///< empty: the earlier file only goes
        QString to;
        QString backup; ///< the earlier file while the commit lasts; empty when there was none
        bool done = false;
    };

    std::vector<Target>::iterator find(const QString& target);
    std::vector<Move> moves() const;
    static void keepEarlier(Move& move, const QString& backupFolder);
    static void putIntoPlace(Move& move);
    static void bringBack(const std::vector<Move>& moves);

    std::map<QString, std::unique_ptr<StagingFolder>> m_folders; ///< by directory
    std::vector<Target> m_targets;
};

} // namespace kpFormats
