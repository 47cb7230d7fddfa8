// SPDX-License-Identifier: MIT
#include "export/platform/FileAccess.h"

#include <QByteArray>
#include <QList>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace kpFormats
{

namespace
{

constexpr char accessList[] = "system.posix_acl_access";

/// A path to an open file, for the calls that take no descriptor without read access.
QByteArray pathOf(int descriptor)
{
    return "/proc/self/fd/" + QByteArray::number(descriptor);
}

QList<QByteArray> attributeNames(const QByteArray& path)
{
    const ssize_t size = ::listxattr(path.constData(), nullptr, 0);
    if (size <= 0)
        return {};
    QByteArray names(static_cast<int>(size), '\0');
    const ssize_t read = ::listxattr(path.constData(), names.data(), static_cast<std::size_t>(names.size()));
    return read <= 0 ? QList<QByteArray>() : names.left(static_cast<int>(read)).split('\0');
}

void copyAttribute(const QByteArray& from, int to, const QByteArray& name)
{
    const ssize_t size = ::getxattr(from.constData(), name.constData(), nullptr, 0);
    if (size < 0)
        return;
    QByteArray value(static_cast<int>(size), '\0');
    const ssize_t read =
        ::getxattr(from.constData(), name.constData(), value.data(), static_cast<std::size_t>(value.size()));
    if (read >= 0)
        ::fsetxattr(to, name.constData(), value.constData(), static_cast<std::size_t>(read), 0);
}

} // namespace

void copyFileAccess(int from, int to)
{
    struct stat earlier = {};
    if (::fstat(from, &earlier) != 0)
        return;
    // The owner first: changing it clears bits of the mode. Only root may; elsewhere the file becomes the user's, with
    // the group if that is one of theirs, and never with the right to run as either.
    const bool owned = ::fchown(to, earlier.st_uid, earlier.st_gid) == 0;
    const bool grouped = owned || ::fchown(to, static_cast<uid_t>(-1), earlier.st_gid) == 0;
    // Another group gets no more than everybody had.
    const mode_t group = grouped ? 0070U : (earlier.st_mode & 0007U) << 3U;
    ::fchmod(to, owned ? earlier.st_mode & 07777U : earlier.st_mode & (0707U | group));
    const QByteArray path = pathOf(from);
    const QList<QByteArray> names = attributeNames(path);
    // One that the folder has given the new file.
    if (!names.contains(accessList))
        ::fremovexattr(to, accessList);
    for (const QByteArray& name : names) {
        if (!name.isEmpty() && !name.startsWith("trusted.") && name != "security.capability")
            copyAttribute(path, to, name);
    }
}

} // namespace kpFormats
