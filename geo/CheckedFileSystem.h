// SPDX-License-Identifier: MIT
#pragma once

#include <cpl_vsi_virtual.h>

namespace kpFormats
{

/// GDAL's way to the real files under a prefix of ours: "/vsikpexport/tmp/a.shp" is "/tmp/a.shp". It does as GDAL's own
/// does, but whatever fails on writing is noted in CheckedWrites, whether the driver looks at it or not.
class CheckedFileSystem : public VSIFilesystemHandler
{
public:
    static const char* prefix() { return "/vsikpexport/"; }
    /// Makes it known to GDAL, the first time it is called.
    static void install();

    using VSIFilesystemHandler::Open;
    VSIVirtualHandle* Open(const char* name, const char* access, bool setError, CSLConstList options) override;
    int Stat(const char* name, VSIStatBufL* status, int flags) override;
    int Unlink(const char* name) override;
    int Mkdir(const char* name, long mode) override;
    int Rmdir(const char* name) override;
    char** ReadDirEx(const char* name, int most) override;
    int Rename(const char* from, const char* to) override;
    GIntBig GetDiskFreeSpace(const char* name) override;
};

} // namespace kpFormats
