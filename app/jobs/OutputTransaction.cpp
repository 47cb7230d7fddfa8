// SPDX-License-Identifier: MIT
#include "app/jobs/OutputTransaction.h"

#include "app/jobs/ExportError.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace refhost
{

namespace
{

/// A hidden name beside \a target that no other run uses; short whatever the target's length.
QString nameBeside(const QString& target, const char* suffix)
{
    static int counter = 0;
    const QFileInfo info(target);
    const QByteArray hash = QCryptographicHash::hash(info.fileName().toUtf8(), QCryptographicHash::Sha1).toHex().left(12);
    return QStringLiteral("%1/.%2-%3-%4%5")
        .arg(info.absolutePath(), QString::fromLatin1(hash))
        .arg(QCoreApplication::applicationPid())
        .arg(++counter)
        .arg(QLatin1String(suffix));
}

/// Makes the contents of a file or directory durable. \returns 0 or the error number
int synchronise(const QString& path, int flags)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), flags);
    if (descriptor < 0)
        return errno;
    const int result = ::fsync(descriptor) == 0 ? 0 : errno;
    return ::close(descriptor) == 0 ? result : errno;
}

bool renameFile(const QString& from, const QString& to)
{
    return ::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

bool isDevice(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isFile() && !info.isDir();
}

QString errorText(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

} // namespace

OutputTransaction::~OutputTransaction()
{
    for (const Entry& entry : m_entries) {
        if (entry.temporary != entry.resolved)
            QFile::remove(entry.temporary);
    }
}

QString OutputTransaction::stage(const QString& target)
{
    const QFileInfo info(target);
    const QFileInfo folder(info.absolutePath());
    if (info.isDir())
        throw ExportError(target, QStringLiteral("this is a directory"), QStringLiteral("give the name of a file"));
    if (!folder.isDir())
        throw ExportError(target, QStringLiteral("the directory %1 does not exist").arg(folder.filePath()),
                          QStringLiteral("create it or choose another"));
    const QString resolved = info.isSymLink() && info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
    Entry entry{target, resolved, resolved, QString()};
    if (!isDevice(resolved)) {
        if (!QFileInfo(QFileInfo(resolved).absolutePath()).isWritable())
            throw ExportError(target, QStringLiteral("the directory %1 cannot be written to").arg(folder.filePath()),
                              QStringLiteral("change its permissions or choose another"));
        if (QFileInfo::exists(resolved) && !QFileInfo(resolved).isWritable())
            throw ExportError(target, QStringLiteral("the file is read-only"),
                              QStringLiteral("change its permissions or choose another name"));
        entry.temporary = nameBeside(resolved, ".part");
    }
    m_entries.push_back(entry);
    return entry.temporary;
}

void OutputTransaction::drop(const QString& target)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&target](const Entry& entry) { return entry.target == target; });
    if (found == m_entries.end())
        return;
    if (found->temporary != found->resolved)
        QFile::remove(found->temporary);
    m_entries.erase(found);
}

void OutputTransaction::putIntoPlace(Entry& entry)
{
    if (const int error = synchronise(entry.temporary, O_RDONLY))
        throw ExportError(entry.target, QStringLiteral("the file could not be made durable: %1").arg(errorText(error)),
                          QStringLiteral("check the disk"));
    struct stat earlier = {};
    const bool existed = ::stat(QFile::encodeName(entry.resolved).constData(), &earlier) == 0;
    if (existed) {
        ::chmod(QFile::encodeName(entry.temporary).constData(), earlier.st_mode & 07777);
        // A second name for the earlier file, so that it can be brought back.
        entry.backup = nameBeside(entry.resolved, ".before");
        if (::link(QFile::encodeName(entry.resolved).constData(), QFile::encodeName(entry.backup).constData()) != 0)
            entry.backup.clear();
    }
    if (!renameFile(entry.temporary, entry.resolved)) {
        const QString cause = errorText(errno);
        throw ExportError(entry.target, QStringLiteral("the file could not be replaced: %1").arg(cause),
                          QStringLiteral("close it in other programs and check its permissions"));
    }
}

void OutputTransaction::commit()
{
    std::size_t done = 0;
    try {
        for (; done < m_entries.size(); ++done) {
            if (m_entries[done].temporary != m_entries[done].resolved)
                putIntoPlace(m_entries[done]);
        }
    } catch (const ExportError&) {
        for (std::size_t index = 0; index < m_entries.size(); ++index) {
            const Entry& entry = m_entries[index];
            if (entry.temporary == entry.resolved)
                continue;
            if (index < done && entry.backup.isEmpty())
                QFile::remove(entry.resolved);
            else if (index < done)
                renameFile(entry.backup, entry.resolved);
            else if (!entry.backup.isEmpty())
                QFile::remove(entry.backup);
        }
        throw;
    }
    for (const Entry& entry : m_entries) {
        if (!entry.backup.isEmpty())
            QFile::remove(entry.backup);
        if (entry.temporary != entry.resolved)
            synchronise(QFileInfo(entry.resolved).absolutePath(), O_RDONLY | O_DIRECTORY);
    }
    m_entries.clear();
}

} // namespace refhost
