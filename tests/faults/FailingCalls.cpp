// SPDX-License-Identifier: MIT
// A library to be loaded before all others (LD_PRELOAD): it counts the calls of a program that change the files of one
// folder, and lets one of them fail, or kills the program instead of carrying it out.
//   KP_FAULT_FOLDER   the folder
//   KP_FAULT_AT       the number of the call, from 1; 0 for none
//   KP_FAULT_HOW      fail or kill
//   KP_FAULT_LOG      a file outside the folder that gets a line "CALL PATH" for each call
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace
{

std::string variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value ? value : "";
}

std::string pathOf(int descriptor)
{
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    char path[4096];
    const ssize_t length = ::readlink(link.c_str(), path, sizeof path);
    return length < 0 ? std::string() : std::string(path, static_cast<std::size_t>(length));
}

std::string pathOf(int folder, const char* name)
{
    if (name[0] == '/')
        return name;
    return (folder == AT_FDCWD ? std::string(".") : pathOf(folder)) + '/' + name;
}

void log(const char* call, const std::string& path)
{
    static const int descriptor = [] {
        const std::string name = variable("KP_FAULT_LOG");
        return name.empty() ? -1
                            : static_cast<int>(::syscall(SYS_openat, AT_FDCWD, name.c_str(),
                                                         O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    }();
    const std::string line = std::string(call) + ' ' + path + '\n';
    ::syscall(SYS_write, descriptor, line.data(), line.size());
}

/// Whether this call is the one that is to fail.
bool isDue(const char* call, const std::string& path)
{
    static const std::string folder = variable("KP_FAULT_FOLDER");
    static const long due = std::strtol(variable("KP_FAULT_AT").c_str(), nullptr, 10);
    static const bool kills = variable("KP_FAULT_HOW") == "kill";
    static long number = 0;
    if (folder.empty() || path.compare(0, folder.size(), folder) != 0)
        return false;
    log(call, path);
    if (++number != due)
        return false;
    if (kills)
        ::kill(::getpid(), SIGKILL);
    return true;
}

bool isWritable(int descriptor)
{
    const int flags = ::fcntl(descriptor, F_GETFL);
    return flags >= 0 && (flags & O_PATH) == 0 && (flags & O_ACCMODE) != O_RDONLY;
}

template <typename Function>
Function* real(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

// Each with the error that a broken or full disk gives.
#define KP_CALL(RESULT, NAME, PARAMETERS, ARGUMENTS, PATH, ERROR)                                                      \
    extern "C" __attribute__((visibility("default"))) RESULT NAME PARAMETERS                                           \
    {                                                                                                                  \
        static auto* const function = real<RESULT PARAMETERS>(#NAME);                                                  \
        if (!isDue(#NAME, PATH))                                                                                       \
            return function ARGUMENTS;                                                                                 \
        errno = ERROR;                                                                                                 \
        return -1;                                                                                                     \
    }

KP_CALL(ssize_t, write, (int file, const void* bytes, std::size_t size), (file, bytes, size), pathOf(file), ENOSPC)
KP_CALL(ssize_t, writev, (int file, const struct iovec* parts, int count), (file, parts, count), pathOf(file), ENOSPC)
KP_CALL(ssize_t, pwrite, (int file, const void* bytes, std::size_t size, off_t place), (file, bytes, size, place),
        pathOf(file), ENOSPC)
KP_CALL(ssize_t, pwrite64, (int file, const void* bytes, std::size_t size, off64_t place), (file, bytes, size, place),
        pathOf(file), ENOSPC)
KP_CALL(int, ftruncate, (int file, off_t size), (file, size), pathOf(file), EIO)
KP_CALL(int, ftruncate64, (int file, off64_t size), (file, size), pathOf(file), EIO)
KP_CALL(int, fsync, (int file), (file), pathOf(file), EIO)
KP_CALL(int, fdatasync, (int file), (file), pathOf(file), EIO)
KP_CALL(int, syncfs, (int file), (file), pathOf(file), EIO)
KP_CALL(int, rename, (const char* from, const char* to), (from, to), pathOf(AT_FDCWD, to), EIO)
KP_CALL(int, renameat, (int folder, const char* from, int other, const char* to), (folder, from, other, to),
        pathOf(other, to), EIO)
KP_CALL(int, renameat2, (int folder, const char* from, int other, const char* to, unsigned flags),
        (folder, from, other, to, flags), pathOf(other, to), EIO)
KP_CALL(int, link, (const char* from, const char* to), (from, to), pathOf(AT_FDCWD, to), EIO)
KP_CALL(int, linkat, (int folder, const char* from, int other, const char* to, int flags),
        (folder, from, other, to, flags), pathOf(other, to), EIO)
KP_CALL(int, unlink, (const char* name), (name), pathOf(AT_FDCWD, name), EIO)
KP_CALL(int, unlinkat, (int folder, const char* name, int flags), (folder, name, flags), pathOf(folder, name), EIO)
KP_CALL(int, rmdir, (const char* name), (name), pathOf(AT_FDCWD, name), EIO)
KP_CALL(int, mkdir, (const char* name, mode_t mode), (name, mode), pathOf(AT_FDCWD, name), ENOSPC)
KP_CALL(int, mkdirat, (int folder, const char* name, mode_t mode), (folder, name, mode), pathOf(folder, name), ENOSPC)

// The file is closed all the same, as the system does it.
extern "C" __attribute__((visibility("default"))) int close(int file)
{
    const bool due = isWritable(file) && isDue("close", pathOf(file));
    const auto result = static_cast<int>(::syscall(SYS_close, file));
    if (!due)
        return result;
    errno = EIO;
    return -1;
}

extern "C" __attribute__((visibility("default"))) int fclose(FILE* stream)
{
    static auto* const function = real<int(FILE*)>("fclose");
    const int file = ::fileno(stream);
    const bool due = file >= 0 && isWritable(file) && isDue("fclose", pathOf(file));
    const int result = function(stream);
    if (!due)
        return result;
    errno = EIO;
    return EOF;
}
