// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <gdal_priv.h>

namespace refhost
{

/// Registers GDAL's drivers the first time it is called. Not done at start: it takes longer than most commands.
void registerGdalDrivers();

/// Keeps GDAL's messages off the terminal while it lives.
class QuietGdal
{
public:
    QuietGdal();
    ~QuietGdal();
    QuietGdal(const QuietGdal&) = delete;
    QuietGdal& operator=(const QuietGdal&) = delete;

    /// GDAL's last error in one line; empty when there was none.
    static QString lastMessage();
};

/// Opens a file. \throws LoadError naming file, cause and cure
GDALDatasetUniquePtr openDataset(const QString& path, unsigned flags, const char* const* options = nullptr);

} // namespace refhost
