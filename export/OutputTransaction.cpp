// SPDX-License-Identifier: MIT
#include "export/OutputTransaction.h"

#include "export/ExportError.h"
#include "export/StagingFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kpFormats
{

namespace
{

QByteArray native(const QString& path)
{
    return QFile::encodeName(path);
}

/// Makes the contents of a file or directory durable. \returns 0 or the error number
int synchronise(const QString& path, int flags)
{
    const int descriptor = ::open(native(path).constData(), flags);
    if (descriptor < 0)
        return errno;
    const int result = ::fsync(descriptor) == 0 ? 0 : errno;
    return ::close(descriptor) == 0 ? result : errno;
}

/// Many files are made durable faster all together than one by one.
constexpr std::size_t mostSingleSyncs = 64;

bool synchroniseDisks(const QStringList& directories)
{
    bool done = true;
    for (const QString& directory : directories) {
        const int descriptor = ::open(native(directory).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        done = descriptor >= 0 && ::syncfs(descriptor) == 0 && done;
        if (descriptor >= 0)
            ::close(descriptor);
    }
    return done;
}

bool renameFile(const QString& from, const QString& to)
{
    return ::rename(native(from).constData(), native(to).constData()) == 0;
}

bool isDevice(const QFileInfo& info)
{
    return info.exists() && !info.isFile() && !info.isDir();
}

QString errorText(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

[[noreturn]] void failToReplace(const QString& target, int error)
{
    throw ExportError(target, QStringLiteral("the file could not be replaced: %1").arg(errorText(error)),
                      QStringLiteral("close it in other programs and check its permissions"));
}

/// Keeps a second run from moving files into the same directories at the same time, so that sidecars of two runs are
/// never mixed.
class DirectoryLocks
{
public:
    explicit DirectoryLocks(const QStringList& directories)
    {
        for (const QString& directory : directories) {
            const int descriptor = ::open(native(directory).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            if (descriptor < 0)
                continue;
            ::flock(descriptor, LOCK_EX);
            m_descriptors.push_back(descriptor);
        }
    }
    ~DirectoryLocks()
    {
        for (const int descriptor : m_descriptors)
            ::close(descriptor);
    }
    DirectoryLocks(const DirectoryLocks&) = delete;
    DirectoryLocks& operator=(const DirectoryLocks&) = delete;

private:
    std::vector<int> m_descriptors;
};

/// The file that a link leads to.
QFileInfo resolvedTarget(const QFileInfo& target)
{
    return QFileInfo(target.isSymLink() && target.exists() ? target.canonicalFilePath() : target.absoluteFilePath());
}

} // namespace

OutputTransaction::OutputTransaction() = default;

OutputTransaction::~OutputTransaction() = default;

void OutputTransaction::requireWritable(const QString& target)
{
    const QFileInfo info(target);
    const QString given = info.absolutePath();
    if (info.isDir())
        throw ExportError(target, QStringLiteral("this is a directory"), QStringLiteral("give the name of a file"));
    if (!QFileInfo(given).isDir())
        throw ExportError(target, QStringLiteral("the directory %1 does not exist").arg(given),
                          QStringLiteral("create it or choose another"));
    const QFileInfo resolved = resolvedTarget(info);
    if (isDevice(resolved))
        return;
    const QString directory = resolved.absolutePath();
    if (!QFileInfo(directory).isWritable())
        throw ExportError(target, QStringLiteral("the directory %1 cannot be written to").arg(directory),
                          QStringLiteral("change its permissions or choose another"));
    if (resolved.exists() && !resolved.isWritable())
        throw ExportError(target, QStringLiteral("the file is read-only"),
                          QStringLiteral("change its permissions or choose another name"));
}

QString OutputTransaction::stage(const QString& target, const QStringList& sidecars)
{
    requireWritable(target);
    const QFileInfo resolved = resolvedTarget(QFileInfo(target));
    if (isDevice(resolved)) {
        m_targets.push_back({target, resolved.filePath(), QString(), {}});
        return resolved.filePath();
    }
    const QString directory = resolved.absolutePath();
    std::unique_ptr<StagingFolder>& folder = m_folders[directory];
    if (!folder)
        folder = std::make_unique<StagingFolder>(directory, target);
    m_targets.push_back({target, resolved.filePath(), folder->newRoom(), sidecars});
    return m_targets.back().folder + QLatin1Char('/') + resolved.fileName();
}

std::vector<OutputTransaction::Target>::iterator OutputTransaction::find(const QString& target)
{
    return std::find_if(m_targets.begin(), m_targets.end(),
                        [&target](const Target& entry) { return entry.name == target; });
}

void OutputTransaction::drop(const QString& target)
{
    const auto found = find(target);
    if (found == m_targets.end())
        return;
    if (!found->folder.isEmpty())
        QDir(found->folder).removeRecursively();
    m_targets.erase(found);
}

QStringList OutputTransaction::waiting(const QString& target) const
{
    QStringList paths;
    const auto found = const_cast<OutputTransaction*>(this)->find(target);
    if (found == m_targets.end() || found->folder.isEmpty())
        return {target};
    const QString directory = QFileInfo(found->resolved).absolutePath();
    for (const QString& name : QDir(found->folder).entryList(QDir::Files | QDir::Hidden))
        paths.append(directory + QLatin1Char('/') + name);
    return paths;
}

std::vector<OutputTransaction::Move> OutputTransaction::moves() const
{
    std::vector<Move> moves;
    for (const Target& target : m_targets) {
        if (target.folder.isEmpty())
            continue;
        const QFileInfo resolved(target.resolved);
        const QDir directory(resolved.absolutePath());
        QSet<QString> written;
        for (const QString& name : QDir(target.folder).entryList(QDir::Files | QDir::Hidden)) {
            written.insert(name);
            moves.push_back({target.name, target.folder + QLatin1Char('/') + name, directory.filePath(name), {}});
        }
        if (written.isEmpty())
            throw ExportError(
                target.name,
                QStringLiteral("what was written is gone: %1 was removed during the run").arg(resolved.absolutePath()),
                QStringLiteral("create the directory and export again"));
        for (const QString& extension : target.sidecars) {
            const QString name = resolved.completeBaseName() + QLatin1Char('.') + extension;
            if (!written.contains(name) && QFileInfo(directory.filePath(name)).isFile())
                moves.push_back({target.name, {}, directory.filePath(name), {}});
        }
    }
    return moves;
}

void OutputTransaction::keepEarlier(Move& move, const QString& backupFolder)
{
    struct stat earlier = {};
    if (::stat(native(move.to).constData(), &earlier) != 0)
        return;
    if (S_ISDIR(earlier.st_mode))
        failToReplace(move.target, EISDIR);
    if (!move.from.isEmpty()) {
        // The owner first: changing it clears bits of the mode. Only root may; elsewhere the file becomes the user's.
        if (::chown(native(move.from).constData(), earlier.st_uid, earlier.st_gid) != 0)
            errno = 0;
        ::chmod(native(move.from).constData(), earlier.st_mode & 07777);
    }
    const QString backup = backupFolder + QLatin1Char('/') + QFileInfo(move.to).fileName();
    // A second name where the file system has them, so that the file is never absent.
    if (::link(native(move.to).constData(), native(backup).constData()) != 0 && !renameFile(move.to, backup))
        failToReplace(move.target, errno);
    move.backup = backup;
}

void OutputTransaction::putIntoPlace(Move& move)
{
    const bool moved = move.from.isEmpty() ? ::unlink(native(move.to).constData()) == 0 || errno == ENOENT
                                           : renameFile(move.from, move.to);
    if (!moved)
        failToReplace(move.target, errno);
    move.done = true;
}

void OutputTransaction::bringBack(const std::vector<Move>& moves)
{
    for (const Move& move : moves) {
        if (!move.backup.isEmpty())
            renameFile(move.backup, move.to);
        else if (move.done)
            QFile::remove(move.to);
    }
}

void OutputTransaction::commit()
{
    std::vector<Move> pending = moves();
    QStringList directories;
    for (const auto& folder : m_folders)
        directories.append(folder.first);
    const bool many = pending.size() > mostSingleSyncs;
    if (many && !synchroniseDisks(directories))
        throw ExportError(m_targets.front().name,
                          QStringLiteral("the files could not be made durable: %1").arg(errorText(errno)),
                          QStringLiteral("check the disk"));
    for (const Move& move : pending) {
        const int error = many || move.from.isEmpty() ? 0 : synchronise(move.from, O_RDONLY);
        if (error != 0)
            throw ExportError(move.target,
                              QStringLiteral("the file could not be made durable: %1").arg(errorText(error)),
                              QStringLiteral("check the disk"));
    }
    const DirectoryLocks locks(directories);
    try {
        for (Move& move : pending) {
            StagingFolder& folder = *m_folders.at(QFileInfo(move.to).absolutePath());
            if (QFileInfo::exists(move.to))
                keepEarlier(move, folder.backupRoom());
        }
        for (Move& move : pending)
            putIntoPlace(move);
    } catch (const ExportError&) {
        bringBack(pending);
        throw;
    }
    for (const QString& directory : qAsConst(directories))
        synchronise(directory, O_RDONLY | O_DIRECTORY);
    m_targets.clear();
    m_folders.clear();
}

} // namespace kpFormats
