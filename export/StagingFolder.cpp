// SPDX-License-Identifier: MIT
#include "export/StagingFolder.h"

#include "export/ExportError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

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

const QString prefix = QStringLiteral(".kpexport-");
const QString backups = QStringLiteral("earlier");

/// An open descriptor that holds the folder's lock, or -1 when another run has it.
/// \a evenWithout: also where the file system has no locks.
int lockFolder(const QString& path, bool evenWithout)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return -1;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || (evenWithout && errno != EWOULDBLOCK))
        return descriptor;
    ::close(descriptor);
    return -1;
}

bool isSameFile(const QString& one, const QString& other)
{
    struct stat first = {};
    struct stat second = {};
    return ::stat(QFile::encodeName(one).constData(), &first) == 0
           && ::stat(QFile::encodeName(other).constData(), &second) == 0 && first.st_dev == second.st_dev
           && first.st_ino == second.st_ino;
}

/// A run was killed while it moved files into place, after all had been made durable. When some have been moved, the
/// others follow; a file that somebody has replaced since stays.
void finishCommit(const QDir& parent, const QDir& folder)
{
    const QDir earlier(folder.filePath(backups));
    const QStringList kept = earlier.entryList(QDir::Files | QDir::Hidden);
    const bool begun = std::any_of(kept.begin(), kept.end(), [&](const QString& name) {
        return !isSameFile(earlier.filePath(name), parent.filePath(name));
    });
    if (!begun)
        return;
    for (const QFileInfo& room : folder.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (room.fileName() == backups)
            continue;
        const QDir waiting(room.filePath());
        for (const QString& name : waiting.entryList(QDir::Files | QDir::Hidden)) {
            const QString target = parent.filePath(name);
            if (!QFile::exists(target) || isSameFile(earlier.filePath(name), target))
                std::rename(QFile::encodeName(waiting.filePath(name)).constData(),
                            QFile::encodeName(target).constData());
        }
    }
}

} // namespace

StagingFolder::StagingFolder(const QString& directory, const QString& target)
{
    static int counter = 0;
    removeAbandoned(directory);
    const QDir parent(directory);
    // Another run may take the new folder for an abandoned one before it is locked; then it is gone, or going.
    constexpr int mostTries = 100;
    for (int tries = 0; tries < mostTries && m_lock < 0; ++tries) {
        const QString name =
            QStringLiteral("%1%2-%3").arg(prefix).arg(QCoreApplication::applicationPid()).arg(++counter);
        m_path = parent.filePath(name);
        if (::mkdir(QFile::encodeName(m_path).constData(), 0777) == 0)
            m_lock = lockFolder(m_path, true);
        else if (errno != EEXIST)
            break;
        if (m_lock >= 0 && !parent.exists(name)) {
            ::close(m_lock);
            m_lock = -1;
        }
    }
    if (m_lock < 0)
        throw ExportError(target,
                          QStringLiteral("nothing can be created in %1: %2")
                              .arg(directory, QString::fromLocal8Bit(std::strerror(errno))),
                          QStringLiteral("make room, change its permissions or choose another directory"));
}

StagingFolder::~StagingFolder()
{
    QDir(m_path).removeRecursively();
    if (m_lock >= 0)
        ::close(m_lock);
}

QString StagingFolder::newRoom()
{
    const QString name = QString::number(++m_rooms);
    QDir(m_path).mkdir(name);
    return m_path + QLatin1Char('/') + name;
}

QString StagingFolder::backupRoom()
{
    QDir(m_path).mkdir(backups);
    return m_path + QLatin1Char('/') + backups;
}

void StagingFolder::removeAbandoned(const QString& directory)
{
    const QDir parent(directory);
    const QStringList names =
        parent.entryList({prefix + QLatin1Char('*')}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QString& name : names) {
        QDir folder(parent.filePath(name));
        const int lock = lockFolder(folder.path(), false);
        if (lock < 0)
            continue;
        if (folder.exists(backups))
            finishCommit(parent, folder);
        folder.removeRecursively();
        ::close(lock);
    }
}

} // namespace kpFormats
