// SPDX-License-Identifier: MIT
#pragma once

#include <cpl_vsi_virtual.h>

namespace kpFormats
{

/// Stands in the place of a file system of GDAL's that reaches the network, and has no file.
class RefusedFileSystem : public VSIFilesystemHandler
{
public:
    /// Takes the place of every file system that GDAL has beside those of this machine's files and memory.
    static void install();

    using VSIFilesystemHandler::Open;
    VSIVirtualHandle* Open(const char* name, const char* access, bool setError, CSLConstList options) override;
    int Stat(const char* name, VSIStatBufL* status, int flags) override;
};

} // namespace kpFormats
