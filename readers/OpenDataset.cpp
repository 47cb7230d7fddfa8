// SPDX-License-Identifier: MIT
#include "readers/OpenDataset.h"

#include "readers/LoadError.h"

#include <QFileInfo>

namespace kpFormats
{

GDALDatasetUniquePtr openDataset(const QString& path, unsigned flags, const char* const* options)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw LoadError(path, QStringLiteral("there is no such file"), QStringLiteral("check the path"));
    if (info.isDir())
        throw LoadError(path, QStringLiteral("this is a directory"), QStringLiteral("name a file in it"));
    if (!info.isReadable())
        throw LoadError(path, QStringLiteral("the file cannot be read"), QStringLiteral("check its permissions"));
    if (info.size() == 0)
        throw LoadError(path, QStringLiteral("the file is empty"), QStringLiteral("export it again from its source"));
    registerGdalDrivers();
    GDALDatasetUniquePtr dataset(GDALDataset::Open(path.toUtf8().constData(),
                                                   flags | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR, nullptr, options));
    if (!dataset) {
        throw LoadError(path, QStringLiteral("the file could not be opened: %1").arg(QuietGdal::lastMessage()),
                        QStringLiteral("give a file in a format that GDAL reads"));
    }
    return dataset;
}

} // namespace kpFormats
