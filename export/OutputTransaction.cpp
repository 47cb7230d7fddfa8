// SPDX-License-Identifier: MIT
#include "export/OutputTransaction.h"

#include "export/DirectoryLocks.h"
#include "export/ExportError.h"
#include "export/StagingFolder.h"
#include "export/TargetPath.h"
#include "export/platform/SystemError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <set>

namespace kpFormats
{

namespace
{

QByteArray native(const QString& name)
{
    return QFile::encodeName(name);
}

[[noreturn]] void failToReplace(const QString& target, const QString& name, int error)
{
    const bool own = QFileInfo(target).fileName() == name;
    const QString file = own ? QStringLiteral("the file") : name;
    if (error == EEXIST)
        throw ExportError(target, QStringLiteral("%1 exists already").arg(file),
                          QStringLiteral("choose another name, or export with --overwrite if it may be replaced"));
    throw ExportError(target, QStringLiteral("%1 could not be replaced: %2").arg(file, errorText(error)),
                      writingCure(error));
}

/// \throws ExportError when the name is taken by something that a file must not replace
void requireReplaceable(const Folder& folder, const QString& name, const QString& target)
{
    const QByteArray entry = native(name);
    const bool own = QFileInfo(target).fileName() == name;
    const QString file = own ? QStringLiteral("this") : name;
    switch (folder.kind(entry)) {
    case Folder::Kind::Nothing:
        return;
    case Folder::Kind::File:
        if (folder.isWritable(entry))
            return;
        throw ExportError(target, QStringLiteral("%1 is read-only").arg(own ? QStringLiteral("the file") : name),
                          QStringLiteral("change its permissions or choose another name"));
    case Folder::Kind::Folder:
        throw ExportError(target, QStringLiteral("%1 is a directory").arg(file),
                          QStringLiteral("remove it or choose another name"));
    case Folder::Kind::Link:
        throw ExportError(target, QStringLiteral("%1 is a symbolic link").arg(file),
                          QStringLiteral("remove it, since the files of one export lie in one directory"));
    case Folder::Kind::Other:
        throw ExportError(target, QStringLiteral("%1 is a device or a pipe").arg(file),
                          QStringLiteral("remove it or choose another name"));
    }
}

[[noreturn]] void failToWait(const QString& target, const QString& holder)
{
    throw ExportError(target, QStringLiteral("%1 holds its directory locked and does not release it").arg(holder),
                      QStringLiteral("wait for it or end it, and export again"));
}

} // namespace

OutputTransaction::OutputTransaction(Existing existing)
    : m_existing(existing)
{
}

OutputTransaction::~OutputTransaction() = default;

void OutputTransaction::requireWritable(const QString& target)
{
    TargetPath(target).requireWritable();
}

void OutputTransaction::requireFree(const Folder& directory, const QString& name, const QString& target) const
{
    requireReplaceable(directory, name, target);
    if (m_existing == Existing::Refuse && directory.kind(native(name)) != Folder::Kind::Nothing)
        failToReplace(target, name, EEXIST);
}

QString OutputTransaction::stage(const QString& target, const QStringList& sidecars)
{
    const TargetPath path(target);
    path.requireWritable();
    if (path.isStream()) {
        m_targets.push_back({target, path.resolved(), nullptr, {}, {}});
        return path.resolved();
    }
    const QFileInfo resolved(path.resolved());
    const QString directory = resolved.absolutePath();
    std::unique_ptr<StagingFolder>& folder = m_folders[directory];
    if (!folder)
        folder = std::make_unique<StagingFolder>(directory, target);
    requireFree(folder->parent(), resolved.fileName(), target);
    for (const QString& extension : sidecars)
        requireFree(folder->parent(), resolved.completeBaseName() + QLatin1Char('.') + extension, target);
    m_targets.push_back({target, resolved.filePath(), folder.get(), folder->newRoom(target), sidecars});
    return folder->path() + QLatin1Char('/') + QString::fromLatin1(m_targets.back().room) + QLatin1Char('/')
           + resolved.fileName();
}

std::vector<OutputTransaction::Target>::const_iterator OutputTransaction::find(const QString& target) const
{
    return std::find_if(m_targets.begin(), m_targets.end(),
                        [&target](const Target& entry) { return entry.name == target; });
}

void OutputTransaction::drop(const QString& target)
{
    const auto found = find(target);
    if (found == m_targets.end())
        return;
    if (found->folder)
        found->folder->removeRoom(found->room);
    m_targets.erase(found);
}

QStringList OutputTransaction::waiting(const QString& target) const
{
    const auto found = find(target);
    if (found == m_targets.end() || !found->folder)
        return {target};
    QStringList paths;
    const QString directory = QFileInfo(found->resolved).absolutePath();
    for (const QByteArray& name : found->folder->room(found->room).names())
        paths.append(directory + QLatin1Char('/') + QFile::decodeName(name));
    paths.sort();
    return paths;
}

void OutputTransaction::addMoves(const Target& target, Batch& batch) const
{
    const QFileInfo resolved(target.resolved);
    const Folder room = target.folder->room(target.room);
    std::set<QByteArray> written;
    for (const QByteArray& name : room.names()) {
        const std::optional<FileIdentity> staged = room.identity(name);
        if (!staged)
            continue;
        written.insert(name);
        batch.moves.push_back({target.room, name, staged, {}});
        batch.targets.append(target.name);
    }
    if (written.empty())
        throw ExportError(
            target.name,
            QStringLiteral("what was written is gone: %1 was removed during the run").arg(resolved.absolutePath()),
            QStringLiteral("create the directory and export again"));
    for (const QString& extension : target.sidecars) {
        const QByteArray name = native(resolved.completeBaseName() + QLatin1Char('.') + extension);
        if (written.count(name) != 0 || target.folder->parent().kind(name) == Folder::Kind::Nothing)
            continue;
        batch.moves.push_back({{}, name, {}, {}});
        batch.targets.append(target.name);
    }
}

std::vector<OutputTransaction::Batch> OutputTransaction::batches() const
{
    std::vector<Batch> batches;
    for (const auto& folder : m_folders) {
        Batch batch;
        batch.folder = folder.second.get();
        for (const Target& target : m_targets) {
            if (target.folder == batch.folder)
                addMoves(target, batch);
        }
        if (!batch.moves.empty())
            batches.push_back(batch);
    }
    return batches;
}

void OutputTransaction::look(Batch& batch) const
{
    const Folder& directory = batch.folder->parent();
    for (std::size_t index = 0; index < batch.moves.size(); ++index) {
        JournalMove& move = batch.moves[index];
        const QString& target = batch.targets[static_cast<int>(index)];
        const QString name = QFile::decodeName(move.name);
        requireFree(directory, name, target);
        move.earlier = directory.identity(move.name);
        if (move.earlier && !move.room.isEmpty())
            batch.folder->room(move.room).copyAccess(move.name, directory, move.name);
    }
}

void OutputTransaction::carryOut(std::vector<Batch>& batches)
{
    for (std::size_t index = 0; index < batches.size(); ++index) {
        Batch& batch = batches[index];
        int error = 0;
        const int failed = batch.folder->carryOut(batch.moves, error);
        if (failed < 0)
            continue;
        QStringList kept;
        for (Batch& begun : batches) {
            if (!begun.folder->takeBack(begun.moves))
                kept.append(begun.folder->keptPath());
        }
        const QString& target = batch.targets[failed];
        if (kept.isEmpty())
            failToReplace(target, QFile::decodeName(batch.moves[static_cast<std::size_t>(failed)].name), error);
        throw ExportError(
            target,
            QStringLiteral("a file could not be replaced, and earlier ones not be brought back: %1")
                .arg(errorText(error)),
            QStringLiteral("the earlier files are in %1: move them back").arg(kept.join(QLatin1String(", "))));
    }
    for (const Batch& batch : batches)
        batch.folder->finish();
}

bool OutputTransaction::commit(const WaitForOthers& wait)
{
    std::vector<Batch> pending = batches();
    std::vector<const Folder*> directories;
    for (const Batch& batch : pending)
        directories.push_back(&batch.folder->parent());
    {
        // Given back before the folders that are locked go.
        const DirectoryLocks locks(directories, wait);
        if (locks.outcome() == DirectoryLocks::Outcome::GivenUp)
            return false;
        if (locks.outcome() == DirectoryLocks::Outcome::TooLong)
            failToWait(m_targets.front().name, locks.holder());
        for (Batch& batch : pending)
            look(batch);
        for (const Batch& batch : pending) {
            const int error = batch.folder->decide(batch.moves);
            if (error == 0)
                continue;
            for (const Batch& decided : pending)
                decided.folder->takeBack(decided.moves);
            throw ExportError(batch.targets.front(),
                              QStringLiteral("the file could not be made durable: %1").arg(errorText(error)),
                              writingCure(error));
        }
        carryOut(pending);
    }
    m_targets.clear();
    m_folders.clear();
    return true;
}

} // namespace kpFormats
