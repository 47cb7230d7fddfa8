// SPDX-License-Identifier: MIT
#include "geo/RefusedFileSystem.h"

#include "geo/CheckedFileSystem.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <set>
#include <string>

#include <cpl_string.h>

namespace kpFormats
{

namespace
{

/// Whether it reads files, memory, and what is packed in other files; what these lie in has a file system of its own.
bool isLocal(const std::string& prefix)
{
    static const char* const local[] = {"/vsimem",    "/vsizip",   "/vsitar",     "/vsigzip",
                                        "/vsi7z",     "/vsirar",   "/vsisubfile", "/vsicached",
                                        "/vsisparse", "/vsicrypt", "/vsistdin",   "/vsistdout"};
    return prefix.empty() || prefix == CheckedFileSystem::prefix()
           || std::any_of(std::begin(local), std::end(local),
                          [&prefix](const char* name) { return prefix.rfind(name, 0) == 0; });
}

} // namespace

void RefusedFileSystem::install()
{
    const CPLStringList prefixes(VSIFileManager::GetPrefixes(), true);
    // GDAL deletes what stands under a prefix at the end, not what was replaced. Some stand under several prefixes.
    std::set<VSIFilesystemHandler*> kept{VSIFileManager::GetHandler("")};
    std::set<VSIFilesystemHandler*> replaced;
    for (int index = 0; index < prefixes.size(); ++index)
        (isLocal(prefixes[index]) ? kept : replaced).insert(VSIFileManager::GetHandler(prefixes[index]));
    for (int index = 0; index < prefixes.size(); ++index) {
        if (!isLocal(prefixes[index]))
            VSIFileManager::InstallHandler(prefixes[index], new RefusedFileSystem);
    }
    for (VSIFilesystemHandler* const handler : replaced) {
        if (kept.count(handler) == 0)
            delete handler;
    }
}

VSIVirtualHandle* RefusedFileSystem::Open(const char* name, const char*, bool setError, CSLConstList)
{
    if (setError)
        VSIError(VSIE_FileError, "%s: access to the network is off", name);
    errno = EACCES;
    return nullptr;
}

int RefusedFileSystem::Stat(const char*, VSIStatBufL*, int)
{
    errno = EACCES;
    return -1;
}

} // namespace kpFormats
