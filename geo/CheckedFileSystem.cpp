// SPDX-License-Identifier: MIT
#include "geo/CheckedFileSystem.h"

#include "geo/CheckedFile.h"
#include "geo/CheckedWrites.h"

#include <QByteArray>

#include <cerrno>
#include <cstring>

#include <fcntl.h>

namespace kpFormats
{

namespace
{

/// The real path.
QByteArray own(const char* name)
{
    return QByteArray("/") + (name + std::strlen(CheckedFileSystem::prefix()));
}

/// The flags of open() for a mode of fopen(); -1 for one that does not exist.
int flagsOf(const char* access)
{
    const bool both = std::strchr(access, '+') != nullptr;
    switch (access[0]) {
    case 'r':
        return both ? O_RDWR : O_RDONLY;
    case 'w':
        // Pages are completed from what is in the file.
        return O_RDWR | O_CREAT | O_TRUNC;
    case 'a':
        return O_RDWR | O_CREAT;
    default:
        return -1;
    }
}

} // namespace

void CheckedFileSystem::install()
{
    // GDAL deletes it.
    static const bool installed = [] {
        VSIFileManager::InstallHandler(prefix(), new CheckedFileSystem);
        return true;
    }();
    static_cast<void>(installed);
}

VSIVirtualHandle* CheckedFileSystem::Open(const char* name, const char* access, bool setError, CSLConstList)
{
    const QByteArray path = own(name);
    CheckedFile::writeOutAll(path);
    const int flags = flagsOf(access);
    constexpr int mode = 0666; // less the user's mask
    const int descriptor = flags < 0 ? -1 : ::open(path.constData(), flags | O_CLOEXEC, mode);
    if (descriptor >= 0)
        return new CheckedFile(path, descriptor, access[0] == 'a');
    const int error = flags < 0 ? EINVAL : errno;
    // Drivers look for files that need not be there, but what they make they need.
    if ((flags & O_CREAT) != 0)
        CheckedWrites::note(path, "open", error);
    if (setError)
        VSIError(VSIE_FileError, "%s: %s", path.constData(), std::strerror(error));
    errno = error;
    return nullptr;
}

int CheckedFileSystem::Stat(const char* name, VSIStatBufL* status, int flags)
{
    const QByteArray path = own(name);
    CheckedFile::writeOutAll(path);
    return VSIStatExL(path.constData(), status, flags);
}

int CheckedFileSystem::Unlink(const char* name)
{
    const int result = VSIUnlink(own(name).constData());
    // SQLite's journal that stays would take the file back when it is read.
    if (result != 0 && errno != ENOENT)
        CheckedWrites::note(own(name), "unlink", errno);
    return result;
}

int CheckedFileSystem::Mkdir(const char* name, long mode)
{
    return VSIMkdir(own(name).constData(), mode);
}

int CheckedFileSystem::Rmdir(const char* name)
{
    return VSIRmdir(own(name).constData());
}

char** CheckedFileSystem::ReadDirEx(const char* name, int most)
{
    return VSIReadDirEx(own(name).constData(), most);
}

int CheckedFileSystem::Rename(const char* from, const char* to)
{
    CheckedFile::writeOutAll(own(from));
    const int result = VSIRename(own(from).constData(), own(to).constData());
    if (result != 0)
        CheckedWrites::note(own(from), "rename", errno);
    return result;
}

GIntBig CheckedFileSystem::GetDiskFreeSpace(const char* name)
{
    return VSIGetDiskFreeSpace(own(name).constData());
}

} // namespace kpFormats
