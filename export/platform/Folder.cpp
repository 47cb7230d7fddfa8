// SPDX-License-Identifier: MIT
#include "export/platform/Folder.h"

#include "export/platform/FileAccess.h"

#include <QFile>

#include <cerrno>
#include <cstdio>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace kpFormats
{

namespace
{

constexpr qint64 mostContent = 64 * 1024 * 1024;

int errorOf(int result)
{
    return result == 0 ? 0 : errno;
}

bool isDots(const char* name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

/// The process that holds a lock of flock() on a file, as the system lists it: "N: FLOCK ADVISORY WRITE PID MM:mm:INODE".
QByteArray holderOf(const struct stat& file)
{
    char place[64];
    std::snprintf(place, sizeof place, "%02x:%02x:%llu", major(file.st_dev), minor(file.st_dev),
                  static_cast<unsigned long long>(file.st_ino));
    QFile list(QStringLiteral("/proc/locks"));
    if (!list.open(QIODevice::ReadOnly))
        return {};
    for (const QByteArray& line : list.readAll().split('\n')) {
        const QList<QByteArray> words = line.simplified().split(' ');
        if (words.size() > 5 && words[1] == "FLOCK" && words[5] == place)
            return words[4];
    }
    return {};
}

} // namespace

Folder::Folder(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    m_descriptor = Descriptor(::open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // One that may be written to but not be listed.
    if (!isOpen() && errno == EACCES)
        m_descriptor = Descriptor(::open(name.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

Folder Folder::child(const QByteArray& name) const
{
    return Folder(
        Descriptor(::openat(m_descriptor.number(), name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)));
}

bool Folder::isPrivate() const
{
    struct stat status = {};
    return ::fstat(m_descriptor.number(), &status) == 0 && status.st_uid == ::geteuid()
           && (status.st_mode & 0777) == 0700;
}

bool Folder::isChildOf(const Folder& parent, const QByteArray& name) const
{
    struct stat own = {};
    struct stat named = {};
    return ::fstat(m_descriptor.number(), &own) == 0
           && ::fstatat(parent.m_descriptor.number(), name.constData(), &named, AT_SYMLINK_NOFOLLOW) == 0
           && own.st_dev == named.st_dev && own.st_ino == named.st_ino;
}

std::vector<QByteArray> Folder::names() const
{
    std::vector<QByteArray> list;
    // The stream has a place in the directory of its own.
    const int descriptor = ::openat(m_descriptor.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* const stream = descriptor < 0 ? nullptr : ::fdopendir(descriptor);
    if (!stream)
        return list;
    while (const dirent* entry = ::readdir(stream)) {
        if (!isDots(entry->d_name))
            list.emplace_back(entry->d_name);
    }
    ::closedir(stream);
    return list;
}

Folder::Kind Folder::kind(const QByteArray& name) const
{
    struct stat status = {};
    if (::fstatat(m_descriptor.number(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return Kind::Nothing;
    if (S_ISREG(status.st_mode))
        return Kind::File;
    if (S_ISDIR(status.st_mode))
        return Kind::Folder;
    return S_ISLNK(status.st_mode) ? Kind::Link : Kind::Other;
}

std::optional<FileIdentity> Folder::identity(const QByteArray& name) const
{
    struct stat status = {};
    if (::fstatat(m_descriptor.number(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0
        || !S_ISREG(status.st_mode))
        return {};
    return FileIdentity(status);
}

bool Folder::isWritable(const QByteArray& name) const
{
    return ::faccessat(m_descriptor.number(), name.constData(), W_OK, AT_EACCESS) == 0;
}

int Folder::make(const QByteArray& name) const
{
    return errorOf(::mkdirat(m_descriptor.number(), name.constData(), 0700));
}

int Folder::write(const QByteArray& name, const QByteArray& content) const
{
    Descriptor file(
        ::openat(m_descriptor.number(), name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!file.isOpen())
        return errno;
    for (int done = 0; done < content.size();) {
        const ssize_t written =
            ::write(file.number(), content.constData() + done, static_cast<std::size_t>(content.size() - done));
        if (written < 0)
            return errno;
        done += static_cast<int>(written);
    }
    const int error = errorOf(::fsync(file.number()));
    const int closing = file.close();
    return error != 0 ? error : closing;
}

std::optional<QByteArray> Folder::read(const QByteArray& name) const
{
    const Descriptor descriptor(
        ::openat(m_descriptor.number(), name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!descriptor.isOpen() || ::fstat(descriptor.number(), &status) != 0 || !S_ISREG(status.st_mode)
        || status.st_uid != ::geteuid() || status.st_size > mostContent)
        return {};
    QFile file;
    if (!file.open(descriptor.number(), QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

int Folder::link(const QByteArray& name, const Folder& to, const QByteArray& newName) const
{
    return errorOf(::linkat(m_descriptor.number(), name.constData(), to.m_descriptor.number(), newName.constData(), 0));
}

int Folder::move(const QByteArray& name, const Folder& to, const QByteArray& newName) const
{
    return errorOf(::renameat(m_descriptor.number(), name.constData(), to.m_descriptor.number(), newName.constData()));
}

int Folder::moveAsNew(const QByteArray& name, const Folder& to, const QByteArray& newName) const
{
    const int target = to.m_descriptor.number();
    int error =
        errorOf(::renameat2(m_descriptor.number(), name.constData(), target, newName.constData(), RENAME_NOREPLACE));
    if (error != EINVAL && error != ENOSYS)
        return error;
    // A file system without this way may have hard links.
    error = link(name, to, newName);
    if (error == 0)
        return remove(name);
    if (error == EEXIST)
        return error;
    // And one without links lets a name be taken by an empty file, which then goes.
    Descriptor taken(::openat(target, newName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!taken.isOpen())
        return errno;
    error = move(name, to, newName);
    if (error != 0)
        to.remove(newName);
    return error;
}

int Folder::remove(const QByteArray& name) const
{
    return errorOf(::unlinkat(m_descriptor.number(), name.constData(), 0));
}

int Folder::removeEmpty(const QByteArray& name) const
{
    return errorOf(::unlinkat(m_descriptor.number(), name.constData(), AT_REMOVEDIR));
}

int Folder::removeAll(const QByteArray& name) const
{
    const Folder folder = child(name);
    if (!folder.isOpen())
        return errno;
    for (const QByteArray& entry : folder.names()) {
        const int error = folder.kind(entry) == Kind::Folder ? folder.removeAll(entry) : folder.remove(entry);
        if (error != 0)
            return error;
    }
    return removeEmpty(name);
}

void Folder::copyAccess(const QByteArray& name, const Folder& from, const QByteArray& source) const
{
    const Descriptor target(
        ::openat(m_descriptor.number(), name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    const Descriptor earlier(::openat(from.m_descriptor.number(), source.constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    if (target.isOpen() && earlier.isOpen())
        copyFileAccess(earlier.number(), target.number());
}

int Folder::synchronise() const
{
    const int error = errorOf(::fsync(m_descriptor.number()));
    // One that cannot be listed cannot be made durable either.
    return error == EBADF || error == EINVAL ? 0 : error;
}

int Folder::synchronise(const QByteArray& name) const
{
    Descriptor file(::openat(m_descriptor.number(), name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    return file.isOpen() ? errorOf(::fsync(file.number())) : errno;
}

int Folder::synchroniseDisk() const
{
    return errorOf(::syncfs(m_descriptor.number()));
}

int Folder::lock() const
{
    return errorOf(::flock(m_descriptor.number(), LOCK_EX | LOCK_NB));
}

void Folder::unlock() const
{
    ::flock(m_descriptor.number(), LOCK_UN);
}

QString Folder::lockHolder() const
{
    struct stat status = {};
    const QByteArray process = ::fstat(m_descriptor.number(), &status) == 0 ? holderOf(status) : QByteArray();
    if (process.isEmpty())
        return QStringLiteral("another program");
    QFile name(QStringLiteral("/proc/%1/comm").arg(QString::fromLatin1(process)));
    const QString command =
        name.open(QIODevice::ReadOnly) ? QString::fromUtf8(name.readAll()).trimmed() : QStringLiteral("unknown");
    return QStringLiteral("process %1 (%2)").arg(QString::fromLatin1(process), command);
}

} // namespace kpFormats
